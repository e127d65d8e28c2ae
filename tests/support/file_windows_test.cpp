#include "file_fixture.h"

#include <thread>

#include <windows.h>

namespace {

// Another program looks into the file and, after a while, closes it.
HANDLE hold(const fs::path &name) {
  HANDLE held = CreateFileW(name.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                            OPEN_EXISTING, 0, nullptr);
  EXPECT_NE(held, INVALID_HANDLE_VALUE);
  return held;
}

std::thread closing(HANDLE held) {
  return std::thread([held] {
    Sleep(120);
    CloseHandle(held);
  });
}

TEST_F(File, ReplacingAndRenamingWaitForOtherPrograms) {
  EXPECT_TRUE(replace(file, "first"));
  HANDLE held = hold(file);
  EXPECT_FALSE(replace(file, "second"));
  EXPECT_EQ(errno, EACCES);
  EXPECT_EQ(files(), 1);
  std::thread other = closing(held);
  EXPECT_TRUE(replace(file, "third"));
  other.join();
  EXPECT_EQ(contents(file), "third");
  held = hold(file);
  EXPECT_FALSE(file_rename(path, path + "2"));
  EXPECT_EQ(errno, EACCES);
  other = closing(held);
  EXPECT_TRUE(file_rename(path, path + "2"));
  other.join();
}

// The file of a stopped program is its own for as long as it is open.
TEST_F(File, AStoppedProgramKeepsItsTemporaryFile) {
  ASSERT_TRUE(file_replace_begin(&first, path.c_str(), false));
  age(".new-1");
  ASSERT_TRUE(file_replace_begin(&second, path.c_str(), true));
  EXPECT_NE(first.temporary, second.temporary);
  std::fputs("lines\n", second.stream);
  EXPECT_TRUE(file_replace_end(&first, true));
  EXPECT_TRUE(file_replace_end(&second, true));
  EXPECT_EQ(contents(file), "lines\r\n");
}

} // namespace
