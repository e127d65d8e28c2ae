#include "support/settings.h"

#include "own_folder.h"

namespace {

struct SettingsFile : OwnFolder {
  Settings list;

  bool load(const std::string &text) {
    std::ofstream("file", std::ios::binary) << text;
    return Settings_load(&list, "file", ':');
  }
  void expect_saved(const std::string &text) {
    EXPECT_TRUE(Settings_save(&list, "file", ':'));
    Settings_free(&list);
    std::ifstream stream("file"); // as text: lines end in the system's way
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(stream), {}), text);
  }
};

TEST_F(SettingsFile, LoadAcceptsAllLineEndings) {
  using namespace std::string_literals;
  EXPECT_TRUE(
      load("  Windowed (Y/N)  :   N  \r\na:b:c\rno separator\n:x\n\n:\0 z\t:\v\f\n\rlast:1"s));
  expect_saved("Windowed (Y/N): N\na: b:c\n: x\n: \nz: \nlast: 1\n");
  EXPECT_TRUE(load("\xEF\xBB\xBF:b\n\xEF\xBB\xBF:d"));
  expect_saved(": b\n\xEF\xBB\xBF: d\n");
  EXPECT_FALSE(load(std::string((1 << 20) + 1, '\n')));
  EXPECT_EQ(errno, EFBIG);
  Settings_free(&list);
  for (const auto &wide : {"\xFF\xFE:"s, "\xFE\xFF"s, "\4:\0:\0"s}) {
    EXPECT_FALSE(load(wide));
    EXPECT_EQ(errno, EILSEQ);
    Settings_free(&list);
  }
}

TEST_F(SettingsFile, KeysMatchByPrefix) {
  load("Stereo mode (long):1\nWindowed (Y/N):Y\nwindowed:first\nWINDOWED:last\n:empty\n");
  EXPECT_STREQ(Settings_get(&list, "Windowed"), "last");
  EXPECT_STREQ(Settings_get(&list, "windowed ("), "Y");
  EXPECT_EQ(Settings_get(&list, "Windowed (Y/N) "), nullptr);
  Settings_set(&list, "STEREO mode", "2");
  Settings_set(&list, "Windowed", "set");
  Settings_set(&list, "New", "one");
  Settings_default(&list, "windowed (y/n)", "no");
  Settings_default(&list, "Stereo mode", "another");
  expect_saved("Stereo mode (long): 2\nWindowed (Y/N): Y\nwindowed: first\nWINDOWED: set\n"
               ": empty\nNew: one\nStereo mode: another\n");
}

TEST(Settings, TrueStartsWithYTOr1) {
  std::string yes;
  for (char c = 127; c >= 0; c--)
    if (setting_is_true(std::string{c, 'y'}.c_str())) yes += c;
  EXPECT_EQ(yes, "ytYT1");
}

} // namespace
