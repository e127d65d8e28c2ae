#include "support/settings.h"

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include <gtest/gtest.h>
#include <unistd.h>

namespace {

const std::string path = testing::TempDir() + "vorel_settings_test." + std::to_string(getpid());

// As text: lines end in the system's way.
std::string contents() {
  std::ifstream file(path);
  return std::string(std::istreambuf_iterator<char>(file), {});
}

Settings loaded(const std::string &text) {
  std::ofstream(path, std::ios::binary) << text;
  Settings list;
  EXPECT_TRUE(Settings_load(&list, path.c_str(), ':'));
  return list;
}

std::string saved(Settings *list) {
  EXPECT_TRUE(Settings_save(list, path.c_str(), ':'));
  Settings_free(list);
  std::string text = contents();
  std::filesystem::remove(path);
  return text;
}

TEST(Settings, LinesOfAllEndingsAreReadAndTrimmed) {
  using namespace std::string_literals;
  Settings list =
      loaded("  Windowed (Y/N)  :   N  \r\na:b:c\rno separator\n:x\n\n:\0 z\t:\v\f\n\rlast: one"s);
  EXPECT_EQ(saved(&list), "Windowed (Y/N): N\na: b:c\n: x\n: \nz: \nlast: one\n");
  list = loaded("");
  EXPECT_EQ(list.count, 0u);
  Settings_free(&list);
  std::filesystem::remove(path);
  EXPECT_TRUE(Settings_load(&list, path.c_str(), ':') && list.count == 0);
  Settings_free(&list);
  std::filesystem::create_directory(path);
  EXPECT_FALSE(Settings_load(&list, path.c_str(), ':'));
  EXPECT_FALSE(Settings_save(&list, path.c_str(), ':'));
  Settings_free(&list);
  std::filesystem::remove(path);
}

// As editors of other systems save them.
TEST(Settings, MarksBeforeTheTextAreNoPartOfIt) {
  Settings list = loaded("\xEF\xBB\xBF"
                         "a: b\n\xEF\xBB\xBF"
                         "c: d");
  EXPECT_EQ(saved(&list), "a: b\n\xEF\xBB\xBF"
                          "c: d\n");
  for (const char *wide : {"\xFF\xFE:", "\xFE\xFF"}) {
    std::ofstream(path, std::ios::binary) << wide;
    EXPECT_TRUE(!Settings_load(&list, path.c_str(), ':') && errno == EILSEQ);
    Settings_free(&list);
  }
  std::filesystem::remove(path);
}

TEST(Settings, KeysAreFoundByTheirStart) {
  Settings list = loaded("Stereo mode (long):1\nWindowed (Y/N):Y\nwindowed:first\nWINDOWED:last\n"
                         "Unknown thing:kept\n:empty\n");
  EXPECT_STREQ(Settings_get(&list, "Windowed"), "last");
  EXPECT_STREQ(Settings_get(&list, "windowed ("), "Y");
  EXPECT_STREQ(Settings_get(&list, "stereo MODE"), "1");
  EXPECT_EQ(Settings_get(&list, "Windowed (Y/N) "), nullptr);
  EXPECT_STREQ(Settings_get(&list, ""), "empty");
  Settings_set(&list, "Stereo mode", "2");
  Settings_set(&list, "Windowed", "set");
  Settings_set(&list, "New", "one");
  Settings_default(&list, "windowed (y/n)", "no");
  Settings_default(&list, "Stereo mode", "added: it is another key");
  EXPECT_EQ(saved(&list),
            "Stereo mode (long): 2\nWindowed (Y/N): Y\nwindowed: first\nWINDOWED: set\n"
            "Unknown thing: kept\n: empty\nNew: one\n"
            "Stereo mode: added: it is another key\n");
}

TEST(Settings, YesHasThreeFirstLetters) {
  for (const char *yes : {"Y", "yes", "True", "t", "1", "10"})
    EXPECT_TRUE(setting_is_true(yes)) << yes;
  for (const char *no : {"", "N", "0", " y", "on", "\xff"})
    EXPECT_FALSE(setting_is_true(no)) << no;
  EXPECT_FALSE(setting_is_true(nullptr));
}

} // namespace
