#include "support/report.h"

#include <cstdio>
#include <fstream>
#include <iostream>
#include <string>

#include <gtest/gtest.h>
#include <unistd.h>

#include "support/clock.h"

namespace {

double now = 5.5;

int32_t report(int32_t type, const char *text, int32_t copy = 1) {
  now += 0.25;
  return report_inner("report_test", 3, type, text, copy);
}

// With answers on the standard input; a warning takes the space before the last character.
TEST(Report, OperationsArePrintedWarnedAboutAndAsked) {
  const std::string input = testing::TempDir() + "vorel_report_test." + std::to_string(getpid());
  std::ofstream(input) << "  Yes nay " << std::string(100, 'y') << " !";
  ASSERT_NE(std::freopen(input.c_str(), "r", stdin), nullptr);
  gfx_clock = [] { return now; };
  report_sleep = [](int32_t milliseconds) { std::printf("waited %d\n", milliseconds); };
  char words[] = "5%s";
  EXPECT_EQ(report_elapsed(), 0);
  testing::internal::CaptureStdout();
  report(report_message, "first");
  report(report_begin, "outer", 0);
  report(report_begin, words);
  words[0] = 'X'; // not in the copy
  EXPECT_EQ(report_depth(), 3U);
  report_set_progress("report_test", 3, 3, 7);
  report(report_message, words);
  EXPECT_EQ(report(report_question, "one?"), 1); // on a frame that owns its text
  EXPECT_EQ(report(report_question, "two?"), 0);
  EXPECT_EQ(report(report_question, "three?"), 1);
  report(report_warning, "wait", 0);
  report_no_wait = 1;
  report(report_warning, "go on", 0);
  report_no_wait = 0;
  EXPECT_EQ(std::getchar(), '!');
  EXPECT_EQ(report(report_question, "end?"), 0);
  report(report_message, words);
  report_set_progress("report_test", 3, 2.5, 1e9);
  report_set_progress("report_test", 3, 2, 0);
  report_set_progress("report_test", 3, 0, 4);
  EXPECT_EQ(report_depth(), 3U);
  report(report_end, nullptr);
  report(report_end, nullptr);
  EXPECT_EQ(report_depth(), 1U);
  EXPECT_EQ(report_elapsed(), 3);
  report_frame fatal = {report_error, "", 0, 0, words, 0, 0, 0, 0, 0};
  report_print(&fatal);
  EXPECT_EQ(testing::internal::GetCapturedStdout(),
            "first\nouter\n5%s\n [3/7]\nX%s\none? (Y/N) two? (Y/N) three? (Y/N) "
            "\n[WARNING] wait\nPress any key to continue program\n"
            "\n[WARNING] go on\nPress any key to continue program\nend? (Y/N) "
            "X%s\nX%s [2.5/1e+09]\nX%s [2]\nX%s [0/4]\n5%s\nouter\n"
            "\n[FATAL ERROR] X%s\nwaited 2500\n");
  report_handler = nullptr;
  report(report_message, nullptr);
  report_handler = report_print;
  report_sleep = clock_sleep;
  clock_reset();
  std::remove(input.c_str());
}

TEST(ReportDeathTest, WrongReportsAreFatal) {
  gfx_clock = [] { return 5.5; };
  report_handler = [](report_frame *f) { std::cerr << f->file << f->line << f->text << f->time; };
  for (const int32_t type : {-1, 0, 4, 8})
    EXPECT_EXIT(report(type, "words"), testing::ExitedWithCode(1),
                "^report126Unknown ReportType in report_inner5.5$");
  EXPECT_EXIT(report(report_end, "words"), testing::ExitedWithCode(1),
              "^report92Trying to pop empty stack in report_inner5.5$");
  EXPECT_EXIT(report(report_error, "words"), testing::ExitedWithCode(1), "^report_test3words5.5$");
  report_handler = report_print;
  clock_reset();
}

TEST(Report, SentencesAreCutAndHandedOn) {
  static std::string told;
  report_tell = [](const char *sentence) { told = sentence; };
  const std::string words = "5% " + std::string(2000, 'x');
  testing::internal::CaptureStderr();
  report_sentence("no %s", words.c_str());
  EXPECT_EQ(told, "no " + words.substr(0, 1020));
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "vorel: " + told + "\n");
  report_tell = nullptr;
}

} // namespace
