#pragma once

#include "support/file.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include <gtest/gtest.h>
#include <unistd.h>

namespace fs = std::filesystem;

// A folder of its own for each test, with a name beyond ASCII.
struct File : testing::Test {
  const fs::path folder = fs::temp_directory_path() / fs::path(u8"\u0436\u0444") +=
      std::to_string(getpid());
  const fs::path file = folder / "mine.txt";
  const std::string path = file.string(); // UTF-8 on every system

  // The file's name and an ending.
  fs::path with(const char *ending) const { return fs::path(file) += ending; }

  void SetUp() override { fs::create_directory(folder); }
  void TearDown() override {
    std::error_code ignored;
    fs::permissions(file, fs::perms::owner_all, ignored); // or it may not be removed
    fs::remove_all(folder);
  }

  static std::string contents(const fs::path &name) {
    std::ifstream file(name, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), {});
  }

  static bool replace(const fs::path &name, const char *text, bool complete = true) {
    FileReplacement replacement;
    if (!file_replace_begin(&replacement, name.string().c_str(), false)) return false;
    std::fputs(text, replacement.stream);
    return file_replace_end(&replacement, complete);
  }

  ptrdiff_t files() const { return std::distance(fs::directory_iterator(folder), {}); }
};
