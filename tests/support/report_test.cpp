#include "support/report.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>
#include <utility>

#include <gtest/gtest.h>
#include <unistd.h>

#include "support/clock.h"

static std::ostringstream seen; // type, text and progress of each frame handed over

static void note(report_frame *frame) {
  seen << frame->type << (frame->text == nullptr ? "-" : frame->text) << frame->progress << ' ';
  if (frame->type == report_question) frame->answer = 42;
}

TEST(Report, StackFollowsTheOperations) {
  report_handler = note;
  char words[] = "temporary";
  const auto report = [](int32_t type, const char *text, int32_t copy) {
    return report_inner("report_test", 2, type, text, copy);
  };
  report(report_message, words, 1);
  words[0] = 'X'; // the copy stays
  EXPECT_EQ(report_depth(), 1u);
  report(report_begin, "outer", 0);
  report(report_begin, words, 1);
  EXPECT_EQ(report_depth(), 3u);
  report_set_progress("report_test", 3, 3, 7);
  report(report_message, words, 1);
  EXPECT_EQ(report(report_question, "really?", 1), 42); // on a frame that owns its text
  report(report_warning, "careful", 0);
  EXPECT_EQ(report_depth(), 3u);
  report(report_end, nullptr, 0);
  report(report_end, nullptr, 0);
  EXPECT_EQ(report_depth(), 1u);
  EXPECT_GE(report_elapsed(), 0.0);
  EXPECT_EQ(seen.str(), "1temporary0 2outer0 2Xemporary0 4-3 1Xemporary0 7really?0 6careful0 "
                        "3Xemporary0 3outer0 ");
  report_handler = nullptr;
  report(report_message, nullptr, 1);
  report_handler = report_print;
}

// What the program prints for a frame, with words waiting on its standard input, the answer, and
// the next character there.
static std::string printed(int32_t type, const char *input, double progress = 0, double total = 0) {
  const std::string input_path =
      testing::TempDir() + "vorel_report_test." + std::to_string(getpid());
  std::ofstream(input_path) << input;
  char words[] = "5%s";
  report_frame frame = {};
  frame.type = type;
  frame.text = words;
  frame.progress = progress;
  frame.progress_total = total;
  testing::internal::CaptureStdout();
  if (std::freopen(input_path.c_str(), "r", stdin) == nullptr) return "no input";
  report_print(&frame);
  std::string text = testing::internal::GetCapturedStdout() + '|' + std::to_string(frame.answer);
  const int next = std::getchar();
  std::error_code open_still; // which some systems don't remove
  std::filesystem::remove(input_path, open_still);
  return next == EOF ? text : text + '|' + static_cast<char>(next);
}

TEST(Report, EachKindIsPrintedInItsWay) {
  EXPECT_EQ(printed(report_message, "xy"), "5%s\n|0|x");
  EXPECT_EQ(printed(report_progress, "", 2), "5%s [2]\n|0");
  EXPECT_EQ(printed(report_progress, "", 2.5, 1e9), "5%s [2.5/1e+09]\n|0");
  EXPECT_EQ(printed(report_progress, "", 0, 4), "5%s [0/4]\n|0");
  report_sleep = [](int32_t milliseconds) { std::printf("waited %d\n", milliseconds); };
  EXPECT_EQ(printed(report_error, ""), "\n[FATAL ERROR] 5%s\nwaited 2500\n|0");
  report_sleep = clock_sleep;
  const std::string warning = "\n[WARNING] 5%s\nPress any key to continue program\n|0|";
  EXPECT_EQ(printed(report_warning, "xy"), warning + "y");
  report_no_wait = 1;
  EXPECT_EQ(printed(report_warning, "xy"), warning + "x");
  report_no_wait = 0;
  const std::string question = "5%s (Y/N) |";
  EXPECT_EQ(printed(report_question, "Yes\n"), question + "1|\n");
  EXPECT_EQ(printed(report_question, "  nay"), question + "0");
  EXPECT_EQ(printed(report_question, ""), question + "0");
  EXPECT_EQ(printed(report_question, std::string(100, 'y').c_str()), question + "1");
}

TEST(ReportDeathTest, WrongReportsAreFatal) {
  const auto fail = [](int32_t type) {
    report_handler = [](report_frame *frame) {
      std::cerr << frame->file << frame->line << frame->text;
    };
    report_inner("report_test", 3, type, "words", 0);
  };
  EXPECT_EXIT(fail(3), testing::ExitedWithCode(1),
              "^report92Trying to pop empty stack in report_inner$");
  for (const int32_t type : {-1, 0, 4, 8})
    EXPECT_EXIT(fail(type), testing::ExitedWithCode(1),
                "^report126Unknown ReportType in report_inner$");
  EXPECT_EXIT(fail(5), testing::ExitedWithCode(1), "^report_test3words$");
}

TEST(Report, SentencesAreAlsoHandedOn) {
  static std::string told;
  report_tell = [](const char *sentence) { told = sentence; };
  const std::string longest(2000, 'x'); // and is cut
  for (const auto &[text, cut] : {std::pair{std::string("a 5%"), std::string("no a 5%")},
                                  std::pair{longest, "no " + longest.substr(0, 1020)}}) {
    testing::internal::CaptureStderr();
    report_sentence("no %s", text.c_str());
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "vorel: " + cut + "\n");
    EXPECT_EQ(told, cut);
  }
  report_tell = nullptr;
}
