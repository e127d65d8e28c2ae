#include "file_fixture.h"

#include <csignal>

#include <sys/stat.h>

#include "support/command.h"

namespace {

TEST_F(File, KeepsItsPermissionsAndLinks) {
  const fs::path link = folder / "link";
  fs::create_symlink("mine.txt", link);
  EXPECT_TRUE(replace(link, "first")); // which leads nowhere yet
  fs::permissions(file, fs::perms::owner_read | fs::perms::owner_write);
  EXPECT_TRUE(replace(link, "second"));
  EXPECT_EQ(fs::status(file).permissions(), fs::perms::owner_read | fs::perms::owner_write);
  EXPECT_TRUE(fs::is_symlink(link));
  EXPECT_EQ(contents(file), "second");
  fs::create_symlink("nowhere", folder / "old-1");
  EXPECT_EQ(file_free_name(folder / "old", ""), folder / "old-2");
}

TEST_F(File, HolesAreFoundAndPipesAreNotWaitedFor) {
  EXPECT_TRUE(replace(file, "first"));
  FILE *stream = file_open(path.c_str());
  EXPECT_FALSE(file_has_holes(stream));
  fs::resize_file(file, 1 << 20);
  EXPECT_TRUE(file_has_holes(stream));
  std::fclose(stream);
  fs::remove(file);
  ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
  EXPECT_EQ(file_open(path.c_str()), nullptr);
  EXPECT_EQ(errno, ENOTSUP);
}

TEST_F(File, CommandsHaveTheUsualSignalsAndALimit) {
  file_survive_limits();
  std::signal(SIGPIPE, SIG_IGN);
  for (const std::string signal : {"XFSZ", "PIPE"}) {
    EXPECT_TRUE(command_run(
        "ulimit -c 0; kill -s " + signal + " $$; echo survived > '" + path + "'", 60000));
    EXPECT_FALSE(fs::exists(file)) << signal;
  }
  EXPECT_FALSE(command_run("sleep 60", 50));
}

// Its own looked like a leftover while it was stopped.
TEST_F(File, AStoppedProgramLeavesAnothersTemporaryFile) {
  ASSERT_TRUE(file_replace_begin(&first, path.c_str(), false));
  age(".new-1");
  ASSERT_TRUE(file_replace_begin(&second, path.c_str(), false));
  EXPECT_FALSE(file_replace_end(&first, true));
  EXPECT_EQ(errno, EBUSY);
  EXPECT_TRUE(file_replace_end(&second, true));
}

} // namespace
