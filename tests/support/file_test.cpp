#include "support/file.h"

#include <cerrno>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

// A folder of its own for each test.
struct File : testing::Test {
  const fs::path folder = testing::TempDir() + "vorel_file_test." + std::to_string(getpid());
  const std::string path = folder / "mine.txt";

  void SetUp() override { fs::create_directory(folder); }
  void TearDown() override { fs::remove_all(folder); }

  static std::string contents(const std::string &name) {
    std::ifstream file(name, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), {});
  }

  static bool replace(const std::string &name, const char *text, bool complete = true) {
    FileReplacement file;
    if (!file_replace_begin(&file, name.c_str(), false)) return false;
    std::fputs(text, file.stream);
    return file_replace_end(&file, complete);
  }

  ptrdiff_t files() const { return std::distance(fs::directory_iterator(folder), {}); }
};

TEST_F(File, IsReplacedWholeOrNotAtAll) {
  EXPECT_TRUE(replace(path, "first"));
  fs::permissions(path, fs::perms::owner_read | fs::perms::owner_write);
  EXPECT_TRUE(replace(path, "second"));
  EXPECT_EQ(fs::status(path).permissions(), fs::perms::owner_read | fs::perms::owner_write);
  EXPECT_FALSE(replace(path, "third", false));
  EXPECT_EQ(contents(path), "second");
  EXPECT_EQ(files(), 1);
  fs::permissions(path, fs::perms::owner_read);
  EXPECT_TRUE(!replace(path, "fourth") && errno == EACCES);
  EXPECT_EQ(contents(path), "second");
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
  EXPECT_EQ(contents(path), "from the first");
  EXPECT_TRUE(file_replace_end(&second, true));
  EXPECT_EQ(contents(path), "from the second");
  const auto long_ago = fs::file_time_type::clock::now() - std::chrono::hours(2);
  for (const char *left : {".new-1", ".new-2", ".new-3"}) // by killed programs
    std::ofstream(path + left) << "half a fi";
  fs::last_write_time(path + ".new-1", long_ago);
  fs::last_write_time(path + ".new-3", long_ago);
  EXPECT_TRUE(replace(path, "still works"));
  EXPECT_EQ(contents(path), "still works");
  EXPECT_EQ(files(), 2);
  // One that stood still for so long that another program takes its file for a leftover.
  ASSERT_TRUE(file_replace_begin(&first, path.c_str(), false));
  fs::last_write_time(first.temporary, long_ago);
  ASSERT_TRUE(file_replace_begin(&second, path.c_str(), false));
  EXPECT_TRUE(!file_replace_end(&first, true) && errno == EBUSY);
  EXPECT_TRUE(file_replace_end(&second, true));
  EXPECT_EQ(contents(path), "");
}

TEST_F(File, LinksStayLinks) {
  const fs::path real = folder / "elsewhere.txt";
  fs::create_symlink("elsewhere.txt", path);
  EXPECT_TRUE(replace(path, "through a link")); // which leads nowhere yet
  EXPECT_TRUE(fs::is_symlink(path));
  EXPECT_EQ(contents(real), "through a link");
}

TEST_F(File, OnlyPlainFilesAreOpened) {
  EXPECT_TRUE(file_open(path.c_str()) == nullptr && errno == ENOENT);
  EXPECT_TRUE(file_open(folder.c_str()) == nullptr && errno == EISDIR);
  ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
  EXPECT_TRUE(file_open(path.c_str()) == nullptr && errno == ENOTSUP);
}

TEST_F(File, FreeNamesAreCounted) {
  const std::string stem = folder / "old";
  std::ofstream(stem + "-1.dat") << "taken";
  fs::create_symlink("nowhere", stem + "-2.dat");
  EXPECT_EQ(file_free_name(stem.c_str(), ".dat"), stem + "-3.dat");
  EXPECT_FALSE(file_rename(path, stem)); // there is nothing
  EXPECT_EQ(errno, ENOENT);
}

} // namespace
