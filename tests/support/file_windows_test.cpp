#include "file_fixture.h"

#include <cerrno>
#include <chrono>
#include <thread>

#include <windows.h>

namespace {

HANDLE hold(const fs::path &name) {
  return CreateFileW(name.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0,
                     nullptr);
}

TEST_F(File, ReplacingWaitsForThoseWhoLookIn) {
  EXPECT_TRUE(replace(file, "first"));
  HANDLE held = hold(file);
  ASSERT_NE(held, INVALID_HANDLE_VALUE);
  EXPECT_TRUE(!replace(file, "second") && errno == EACCES);
  EXPECT_EQ(files(), 1);
  std::thread other([held] {
    Sleep(120);
    CloseHandle(held);
  });
  EXPECT_TRUE(replace(file, "third"));
  other.join();
  EXPECT_EQ(contents(file), "third");
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
