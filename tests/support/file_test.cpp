#include "file_fixture.h"

#include <cerrno>
#include <chrono>

namespace {

TEST_F(File, IsReplacedWholeOrNotAtAll) {
  EXPECT_TRUE(replace(file, "first"));
  EXPECT_TRUE(replace(file, "second"));
  EXPECT_FALSE(replace(file, "third", false));
  EXPECT_EQ(contents(file), "second");
  EXPECT_EQ(files(), 1);
  fs::permissions(file, fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
  EXPECT_TRUE(!replace(file, "fourth") && errno == EACCES);
  EXPECT_EQ(contents(file), "second");
  EXPECT_FALSE(replace(folder, "a folder"));
  EXPECT_FALSE(replace(folder / "none" / "file", ""));
}

TEST_F(File, TwoProgramsDontShareTheirTemporaries) {
  FileReplacement first, second;
  ASSERT_TRUE(file_replace_begin(&first, path.c_str(), false));
  ASSERT_TRUE(file_replace_begin(&second, path.c_str(), true));
  std::fputs("from the first", first.stream);
  std::fputs("from the second", second.stream);
  EXPECT_TRUE(file_replace_end(&first, true));
  EXPECT_EQ(contents(file), "from the first");
  EXPECT_TRUE(file_replace_end(&second, true));
  EXPECT_EQ(contents(file), "from the second");
  const auto long_ago = fs::file_time_type::clock::now() - std::chrono::hours(2);
  for (const char *left : {".new-2", ".new-3"}) // by killed programs
    std::ofstream(with(left)) << "half a fi";
  fs::last_write_time(with(".new-3"), long_ago);
  EXPECT_TRUE(replace(file, "still works"));
  EXPECT_EQ(contents(file), "still works");
  EXPECT_EQ(files(), 2);
}

TEST_F(File, FreeNamesAreCountedAndOnlyPlainFilesAreOpened) {
  const std::string stem = (folder / "old").string();
  std::ofstream(folder / "old-1.dat") << "taken";
  fs::create_directory(folder / "old-2.dat");
  EXPECT_EQ(file_free_name(stem.c_str(), ".dat"), stem + "-3.dat");
  EXPECT_TRUE(!file_rename(path, stem) && errno == ENOENT);
  EXPECT_TRUE(file_open(path.c_str()) == nullptr && errno == ENOENT);
  EXPECT_TRUE(file_open(folder.string().c_str()) == nullptr && errno == EISDIR);
}

} // namespace
