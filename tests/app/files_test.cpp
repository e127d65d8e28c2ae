// The settings and the session of a run.

#include <tuple>

#include <gmock/gmock.h>

#include "app/session_file.h"
#include "app/settings_file.h"
#include "gfx/window.h"
#include "own_folder.h"
#include "render/anaglyph.h"
#include "render/gl/age_colour.h"
#include "world/roamer.h"

namespace {

struct Files : OwnFolder {
  ::Run run = {};
};

TEST_F(Files, SettingsAreReadAndSaved) {
  const std::string mode = "Stereo mode (0=none,1=top/bottom,2=side-by-side,3=interlace,4=two "
                           "screen SBS,5=two screen vertical,6-8=coloured): ";
  const std::string first = "Windowed (Y/N): n\nResolution: 801x7\nFullscreen offset: -40, 3\n";
  const std::string extra = "Roamers: 10001\nTrail: Light\nAnaglyph: Dubois\n";
  write("config.txt",
        first + mode + "12\nSwap stereo (Y/N): t\nStereo Depth: inf\nHue: 7\n" + extra);
  settings_start(&run);
  EXPECT_EQ(std::tuple(windowed, screen_width, screen_height, fullscreen_offset_x,
                       fullscreen_offset_y, run.stereo_mode, run.stereo_swap, run.stereo_depth,
                       run.roamers, age_colour_light, anaglyph_dubois),
            std::tuple(0, 801, 7, -40, 3, 12, 1, 0.0, max_roamers, true, true));
  run.stereo_mode = 3;
  run.stereo_depth = 0.1234567;
  settings_end(&run);
  EXPECT_EQ(contents("config.txt"),
            first + mode + "3\nSwap stereo (Y/N): Y\nStereo Depth: 0.1234567\nHue: 7\n" + extra);
}

TEST_F(Files, NoSessionIsLost) {
  const struct {
    void (*before)(), (*meanwhile)();
    const char *sentences, *files;
  } cases[] = {
      {[] {}, [] {}, "", "maze_save.dat "},
      {[] { write("maze_save.dat", ""); }, [] {}, "damaged; it has been renamed to \"maze_save.dam",
       "maze_save.damaged-1.dat maze_save.dat "},
      {[] { fs::create_directory("maze_save.dat"); }, [] {},
       "\"maze_save.dat\", since it is left alone", "maze_save.beside-1.dat maze_save.dat "},
      {[] {}, [] { write("maze_save.dat", "x"); }, "since another program has written it",
       "maze_save.beside-1.dat maze_save.dat "}};
  for (const auto &[before, meanwhile, sentences, expected] : cases) {
    for (const auto &entry : fs::directory_iterator(folder))
      fs::remove(entry.path());
    before();
    testing::internal::CaptureStderr();
    session_start(&run);
    meanwhile();
    EXPECT_EQ(session_save(&run), SessionPlace::this_folder);
    const std::string words = testing::internal::GetCapturedStderr();
    EXPECT_THAT(words, testing::HasSubstr(sentences));
    EXPECT_EQ(words.empty(), *sentences == '\0') << words;
    EXPECT_EQ(files(), expected);
    World_free(&run.world);
  }
}

} // namespace
