#pragma once

#include "support/file.h"

#include <cerrno>
#include <chrono>
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
  FileReplacement first, second;

  void SetUp() override { fs::create_directory(folder); }
  void TearDown() override {
    std::error_code ignored;
    fs::permissions(file, fs::perms::owner_all, ignored); // or it may not be removed
    fs::remove_all(folder);
  }

  static std::string contents(const fs::path &name) {
    std::ifstream stream(name, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(stream), {});
  }

  bool replace(const fs::path &name, const char *text, bool complete = true) {
    if (!file_replace_begin(&first, name.string().c_str(), false)) return false;
    std::fputs(text, first.stream);
    return file_replace_end(&first, complete);
  }

  // The file's name and an ending.
  fs::path with(const char *ending) const { return fs::path(file) += ending; }

  // Makes a file with that ending as old as one that a killed program left.
  void age(const char *ending) const {
    fs::last_write_time(with(ending), fs::file_time_type::clock::now() - std::chrono::hours(2));
  }

  ptrdiff_t files() const { return std::distance(fs::directory_iterator(folder), {}); }
};
