#include "support/report.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>

#include <gtest/gtest.h>

static const std::string output_path = testing::TempDir() + "vorel_report_test.txt";

// Stands in for the wait: passes on to the standard error what can be read at that moment.
static void show_output_so_far(int32_t milliseconds) {
  std::string shown; // filled first, since writing to cerr flushes the output
  std::getline(std::ifstream(output_path), shown, '\0');
  std::cerr << "<" << milliseconds << ":" << shown << ">";
}

static void fail_into_file() {
  if (std::freopen(output_path.c_str(), "wb", stdout) == nullptr) std::exit(3);
  report_sleep = show_output_so_far;
  report_fatal("report_test", 1, "100%s lost");
}

TEST(ReportDeathTest, FatalCanBeReadDuringTheWaitAndEndsWithStatusOne) {
  EXPECT_EXIT(fail_into_file(), testing::ExitedWithCode(1),
              "<2500:\n\\[FATAL ERROR\\] 100%s lost\n>");
  std::filesystem::remove(output_path);
}
