#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <unistd.h>

using Bytes = std::vector<uint8_t>;

// A session's file, which goes with the test.
struct SessionFile : testing::Test {
  const std::string path = testing::TempDir() + "vorel_session_test." + std::to_string(getpid());

  Bytes file_bytes() const {
    std::ifstream file(path, std::ios::binary);
    return Bytes(std::istreambuf_iterator<char>(file), {});
  }
  void TearDown() override { std::filesystem::remove(path); }
};
