#include "file_fixture.h"

#include <cerrno>
#include <chrono>

#include <sys/stat.h>

namespace {

TEST_F(File, KeepsItsPermissionsAndLinks) {
  EXPECT_TRUE(replace(file, "first"));
  fs::permissions(file, fs::perms::owner_read | fs::perms::owner_write);
  EXPECT_TRUE(replace(file, "second"));
  EXPECT_EQ(fs::status(file).permissions(), fs::perms::owner_read | fs::perms::owner_write);
  fs::create_symlink("elsewhere.txt", folder / "link");
  EXPECT_TRUE(replace(folder / "link", "through a link")); // which leads nowhere yet
  EXPECT_TRUE(fs::is_symlink(folder / "link"));
  EXPECT_EQ(contents(folder / "elsewhere.txt"), "through a link");
  fs::create_symlink("nowhere", folder / "old-1");
  EXPECT_EQ(file_free_name((folder / "old").c_str(), ""), folder / "old-2");
}

TEST_F(File, HolesAreFound) {
  EXPECT_TRUE(replace(file, "first"));
  FILE *stream = file_open(path.c_str());
  EXPECT_FALSE(file_has_holes(stream));
  fs::resize_file(file, 1 << 20);
  EXPECT_TRUE(file_has_holes(stream));
  std::fclose(stream);
}

TEST_F(File, PipesAreNotWaitedFor) {
  ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
  EXPECT_TRUE(file_open(path.c_str()) == nullptr && errno == ENOTSUP);
}

// It stood still for so long that another program takes its file for a leftover.
TEST_F(File, ASleeperDoesNotTakeAnothersTemporary) {
  FileReplacement first, second;
  ASSERT_TRUE(file_replace_begin(&first, path.c_str(), false));
  fs::last_write_time(with(".new-1"), fs::file_time_type::clock::now() - std::chrono::hours(2));
  ASSERT_TRUE(file_replace_begin(&second, path.c_str(), false));
  EXPECT_TRUE(!file_replace_end(&first, true) && errno == EBUSY);
  EXPECT_TRUE(file_replace_end(&second, true));
  EXPECT_EQ(contents(file), "");
}

} // namespace
