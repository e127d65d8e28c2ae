#include "file_fixture.h"

#include "support/settings.h"

namespace {

struct SettingsFile : File {
  Settings list;

  void load(const std::string &text, bool expected = true) {
    std::ofstream(file, std::ios::binary) << text;
    EXPECT_EQ(Settings_load(&list, path.c_str(), ':'), expected) << text;
  }

  std::string saved() {
    EXPECT_TRUE(Settings_save(&list, path.c_str(), ':'));
    Settings_free(&list);
    std::ifstream stream(file); // as text: lines end in the system's way
    return std::string(std::istreambuf_iterator<char>(stream), {});
  }
};

TEST_F(SettingsFile, HasLinesOfAllEndings) {
  using namespace std::string_literals;
  load("  Windowed (Y/N)  :   N  \r\na:b:c\rno separator\n:x\n\n:\0 z\t:\v\f\n\rlast: one"s);
  EXPECT_EQ(saved(), "Windowed (Y/N): N\na: b:c\n: x\n: \nz: \nlast: one\n");
  load("\xEF\xBB\xBF:b\n\xEF\xBB\xBF:d");
  EXPECT_EQ(saved(), ": b\n\xEF\xBB\xBF: d\n");
  load("");
  EXPECT_EQ(saved(), "");
  for (const char *wide : {"\xFF\xFE:", "\xFE\xFF"}) {
    load(wide, false);
    EXPECT_EQ(errno, EILSEQ);
    Settings_free(&list);
  }
  fs::remove(file);
  EXPECT_TRUE(Settings_load(&list, path.c_str(), ':'));
  EXPECT_EQ(saved(), "");
  EXPECT_FALSE(Settings_load(&list, folder.string().c_str(), ':'));
  EXPECT_FALSE(Settings_save(&list, folder.string().c_str(), ':'));
  Settings_free(&list);
}

TEST_F(SettingsFile, HasKeysFoundByTheirStart) {
  load("Stereo mode (long):1\nWindowed "
       "(Y/N):Y\nwindowed:first\nWINDOWED:last\nOther:kept\n:empty\n");
  EXPECT_STREQ(Settings_get(&list, "Windowed"), "last");
  EXPECT_STREQ(Settings_get(&list, "windowed ("), "Y");
  EXPECT_STREQ(Settings_get(&list, "stereo MODE"), "1");
  EXPECT_EQ(Settings_get(&list, "Windowed (Y/N) "), nullptr);
  EXPECT_STREQ(Settings_get(&list, ""), "empty");
  Settings_set(&list, "Stereo mode", "2");
  Settings_set(&list, "Windowed", "set");
  Settings_set(&list, "New", "one");
  Settings_default(&list, "windowed (y/n)", "no");
  Settings_default(&list, "Stereo mode", "another");
  EXPECT_EQ(saved(), "Stereo mode (long): 2\nWindowed (Y/N): Y\nwindowed: first\nWINDOWED: set\n"
                     "Other: kept\n: empty\nNew: one\nStereo mode: another\n");
}

TEST(Settings, YesHasThreeFirstLetters) {
  for (const char *yes : {"Y", "yes", "True", "t", "1", "10"})
    EXPECT_TRUE(setting_is_true(yes)) << yes;
  for (const char *no : {"", "N", "0", " y", "on", "\xff"})
    EXPECT_FALSE(setting_is_true(no)) << no;
  EXPECT_FALSE(setting_is_true(nullptr));
}

} // namespace
