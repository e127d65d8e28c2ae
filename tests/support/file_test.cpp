#include "file_fixture.h"

namespace {

TEST_F(File, IsReplacedWholeOrNotAtAll) {
  EXPECT_TRUE(replace(file, "first"));
  EXPECT_TRUE(replace(file, "second"));
  EXPECT_FALSE(replace(file, "third", false));
  EXPECT_EQ(files(), 1);
  fs::permissions(file, fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
  EXPECT_FALSE(replace(file, "fourth"));
  EXPECT_EQ(errno, EACCES);
  EXPECT_EQ(contents(file), "second");
  EXPECT_FALSE(replace(folder, "a folder"));
  EXPECT_FALSE(replace(folder / "none" / "file", ""));
}

TEST_F(File, ProgramsHaveTheirOwnTemporaryFiles) {
  ASSERT_TRUE(file_replace_begin(&first, path.c_str(), false));
  ASSERT_TRUE(file_replace_begin(&second, path.c_str(), true));
  std::fputs("first", first.stream);
  EXPECT_TRUE(file_replace_end(&second, true));
  EXPECT_EQ(contents(file), "");
  EXPECT_TRUE(file_replace_end(&first, true));
  EXPECT_EQ(contents(file), "first");
  std::ofstream(with(".new-2")) << "of a program that may still be running";
  std::ofstream(with(".new-3")) << "of a killed program";
  age(".new-3");
  EXPECT_TRUE(replace(file, "still works"));
  EXPECT_EQ(contents(file), "still works");
  EXPECT_EQ(files(), 2);
}

TEST_F(File, NamesAreFreeAndOnlyPlainFilesAreOpened) {
  std::ofstream(with("-1.dat")) << "taken";
  fs::create_directory(with("-2.dat"));
  EXPECT_EQ(file_free_name(path, ".dat"), path + "-3.dat");
  EXPECT_FALSE(file_rename(path, path + "-3.dat"));
  EXPECT_EQ(errno, ENOENT);
  EXPECT_EQ(file_open(path.c_str()), nullptr);
  EXPECT_EQ(errno, ENOENT);
  EXPECT_EQ(file_open(folder.string().c_str()), nullptr);
  EXPECT_EQ(errno, EISDIR);
}

} // namespace
