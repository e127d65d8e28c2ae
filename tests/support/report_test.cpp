// Reports, the end of memory, and the clock.

#include "support/report.h"

#include <chrono>
#include <iostream>
#include <new>
#include <string>

#include <gtest/gtest.h>
#include <unistd.h>

#include "support/clock.h"
#include "support/memory.h"

TEST(Report, OperationsNestAndArePrinted) {
  static double now = 5.5;
  gfx_clock = [] { return now += 0.25; };
  char words[] = "5%s";
  EXPECT_EQ(report_elapsed(), 0);
  testing::internal::CaptureStdout();
  report_inner("report_test", 1, report_begin, words, 1);
  words[0] = 'X'; // not in the copy
  report_inner("report_test", 2, report_message, words, 1);
  report_set_progress("report_test", 3, 2.5, 1e9);
  report_set_progress("report_test", 4, 2, 0);
  report_inner("report_test", 5, report_end, nullptr, 0);
  EXPECT_EQ(report_elapsed(), 1.25);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "5%s\nX%s\nX%s [2.5/1e+09]\nX%s [2]\n5%s\n");
  clock_set_source(clock_steady);
}

TEST(ReportDeathTest, WrongReportsAreFatal) {
  report_set_hooks({.sleep = [](int32_t milliseconds) { std::cerr << milliseconds; }});
  const std::pair<int32_t, std::string> rows[] = {
      {0, "Unknown"}, {4, "Unknown"}, {8, "Unknown"}, {3, "Trying to pop empty"}, {5, "words"}};
  for (const auto &[type, words] : rows)
    EXPECT_EXIT((dup2(2, 1), report_inner("report_test", 3, type, "words", 1)),
                testing::ExitedWithCode(1), "^\n.FATAL ERROR. " + words + ".*\n2500$");
  report_set_hooks({});
}

TEST(Report, LongSentencesAreShownWhole) {
  static std::string shown;
  report_set_show([](const char *sentence) { shown = sentence; });
  const std::string words = "5% " + std::string(2000, 'x');
  testing::internal::CaptureStderr();
  report_sentence("no %s", words.c_str());
  EXPECT_EQ(shown, "no " + words);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "vorel: " + shown + "\n");
  report_set_show(nullptr);
}

TEST(MemoryDeathTest, ExhaustionIsReportedAndEndsTheProgram) {
  memory_begin();
  EXPECT_EXIT(memory_block(SIZE_MAX / 2), testing::ExitedWithCode(1), "vorel: .* no memory");
  EXPECT_EXIT(std::get_new_handler()(), testing::ExitedWithCode(1), "vorel: .* no memory");
  memory_set_save(memory_exhausted);
  EXPECT_EXIT(memory_exhausted(), testing::ExitedWithCode(1), "^$");
  memory_set_save(nullptr);
}

static double steady() {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

TEST(Clock, ReadsTheCounterOrElseTheTicks) {
  const double start = steady();
  clock_sleep(30);
  const double time = gfx_clock();
  EXPECT_GE(time, start + 0.03);
  EXPECT_LE(time, steady() + 1e-6);
  clock_set_source(
      {[](int32_t *, uint32_t *) { return false; }, nullptr, [] { return UINT32_MAX; }});
  EXPECT_DOUBLE_EQ(gfx_clock(), 4294967.295);
  clock_set_source(clock_steady);
}
