#include "file_fixture.h"

#include <cerrno>

#include "support/settings.h"

namespace {

Settings loaded(const fs::path &file, const std::string &text, bool expected = true) {
  std::ofstream(file, std::ios::binary) << text;
  Settings list;
  EXPECT_EQ(Settings_load(&list, file.string().c_str(), ':'), expected) << text;
  return list;
}

std::string saved(const fs::path &file, Settings list) {
  EXPECT_TRUE(Settings_save(&list, file.string().c_str(), ':'));
  Settings_free(&list);
  std::ifstream stream(file); // as text: lines end in the system's way
  return std::string(std::istreambuf_iterator<char>(stream), {});
}

TEST_F(File, HasSettingsInLinesOfAllEndings) {
  using namespace std::string_literals;
  EXPECT_EQ(saved(file, loaded(file, "  Windowed (Y/N)  :   N  \r\na:b:c\rno separator\n:x\n\n:\0 z"
                                     "\t:\v\f\n\rlast: one"s)),
            "Windowed (Y/N): N\na: b:c\n: x\n: \nz: \nlast: one\n");
  EXPECT_EQ(saved(file, loaded(file, "\xEF\xBB\xBF:b\n\xEF\xBB\xBF:d")), ": b\n\xEF\xBB\xBF: d\n");
  EXPECT_EQ(saved(file, loaded(file, "")), "");
  for (const char *wide : {"\xFF\xFE:", "\xFE\xFF"}) {
    Settings list = loaded(file, wide, false);
    EXPECT_EQ(errno, EILSEQ);
    Settings_free(&list);
  }
  EXPECT_EQ(saved(file, loaded(folder / "none" / "file", "")), "");
  Settings list = loaded(folder, "", false);
  EXPECT_FALSE(Settings_save(&list, folder.string().c_str(), ':'));
  Settings_free(&list);
}

TEST_F(File, HasSettingsFoundByTheStartOfTheirKeys) {
  Settings list = loaded(file, "Stereo mode (long):1\nWindowed (Y/N):Y\nwindowed:first\n"
                               "WINDOWED:last\nUnknown thing:kept\n:empty\n");
  EXPECT_STREQ(Settings_get(&list, "Windowed"), "last");
  EXPECT_STREQ(Settings_get(&list, "windowed ("), "Y");
  EXPECT_STREQ(Settings_get(&list, "stereo MODE"), "1");
  EXPECT_EQ(Settings_get(&list, "Windowed (Y/N) "), nullptr);
  EXPECT_STREQ(Settings_get(&list, ""), "empty");
  Settings_set(&list, "Stereo mode", "2");
  Settings_set(&list, "Windowed", "set");
  Settings_set(&list, "New", "one");
  Settings_default(&list, "windowed (y/n)", "no");
  Settings_default(&list, "Stereo mode", "another key");
  EXPECT_EQ(saved(file, list),
            "Stereo mode (long): 2\nWindowed (Y/N): Y\nwindowed: first\nWINDOWED: set\n"
            "Unknown thing: kept\n: empty\nNew: one\nStereo mode: another key\n");
}

TEST(Settings, YesHasThreeFirstLetters) {
  for (const char *yes : {"Y", "yes", "True", "t", "1", "10"})
    EXPECT_TRUE(setting_is_true(yes)) << yes;
  for (const char *no : {"", "N", "0", " y", "on", "\xff", static_cast<const char *>(nullptr)})
    EXPECT_FALSE(setting_is_true(no)) << (no == nullptr ? "null" : no);
}

} // namespace
