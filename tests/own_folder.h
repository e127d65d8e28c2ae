#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <numeric>
#include <set>
#include <string>

#include <gtest/gtest.h>
#include <unistd.h>

namespace fs = std::filesystem;

// Each test runs in an empty folder of its own, with a name beyond ASCII.
struct OwnFolder : testing::Test {
  const fs::path outside = fs::current_path();
  const fs::path folder = fs::temp_directory_path() / fs::path(u8"\u0436\u0444") +=
      std::to_string(getpid());

  OwnFolder() {
    fs::create_directory(folder);
    fs::current_path(folder);
  }
  ~OwnFolder() override {
    fs::current_path(outside); // some systems keep a folder that is in use
    fs::remove_all(folder);
  }

  // The names of all files, in order, each with a space behind it.
  std::string files() const {
    std::set<std::string> names;
    for (const auto &entry : fs::directory_iterator(folder))
      names.insert(entry.path().filename().string() + " ");
    return std::accumulate(names.begin(), names.end(), std::string());
  }
  static void write(const fs::path &name, const std::string &text) {
    std::ofstream(name, std::ios::binary) << text;
  }
  static std::string contents(const fs::path &name) {
    std::ifstream file(name, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), {});
  }
};
