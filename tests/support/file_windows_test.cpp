#include "file_fixture.h"

#include <cerrno>
#include <chrono>
#include <thread>

#include <windows.h>

namespace {

HANDLE hold(const fs::path &name) {
  HANDLE held = CreateFileW(name.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                            OPEN_EXISTING, 0, nullptr);
  EXPECT_NE(held, INVALID_HANDLE_VALUE);
  return held;
}

// Lets go of it after a while.
std::thread letting_go(HANDLE held) {
  return std::thread([held] {
    Sleep(120);
    CloseHandle(held);
  });
}

TEST_F(File, ReplacingWaitsForThoseWhoLookIn) {
  EXPECT_TRUE(replace(file, "first"));
  HANDLE held = hold(file);
  EXPECT_TRUE(!replace(file, "second") && errno == EACCES);
  EXPECT_EQ(files(), 1);
  std::thread other = letting_go(held);
  EXPECT_TRUE(replace(file, "third"));
  other.join();
  EXPECT_EQ(contents(file), "third");
}

// The new file is looked through before it has its name.
TEST_F(File, RenamingWaitsForThoseWhoLookIn) {
  EXPECT_TRUE(replace(file, "new"));
  HANDLE held = hold(file);
  EXPECT_TRUE(!file_rename(path, path + "2") && errno == EACCES);
  std::thread other = letting_go(held);
  EXPECT_TRUE(file_rename(path, path + "2"));
  other.join();
  EXPECT_TRUE(!file_rename(path, path + "2") && errno == ENOENT);
}

// The file of a program that stood still is its own for as long as it is open.
TEST_F(File, ASleeperKeepsItsTemporary) {
  FileReplacement first, second;
  ASSERT_TRUE(file_replace_begin(&first, path.c_str(), false));
  fs::last_write_time(with(".new-1"), fs::file_time_type::clock::now() - std::chrono::hours(2));
  ASSERT_TRUE(file_replace_begin(&second, path.c_str(), true));
  EXPECT_NE(first.temporary, second.temporary);
  std::fputs("lines\n", second.stream);
  EXPECT_TRUE(file_replace_end(&first, true));
  EXPECT_TRUE(file_replace_end(&second, true));
  EXPECT_EQ(contents(file), "lines\r\n");
}

} // namespace
