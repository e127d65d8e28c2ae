// What a run does with its settings and its session.

#include <chrono>
#include <tuple>

#include <gmock/gmock.h>

#include "app/session_file.h"
#include "app/settings_file.h"
#include "gfx/window.h"
#include "own_folder.h"

namespace {

using testing::HasSubstr;

struct Files : OwnFolder {
  ::Run run = {};

  void TearDown() override {
    unsetenv("TMPDIR");
    fullscreen_offset_x = fullscreen_offset_y = 0;
  }
  static void write(const std::string &name, const std::string &text) {
    std::ofstream(name, std::ios::binary) << text;
  }
};

// The sentences on standard error during a call.
template <typename Call> std::string said(Call call) {
  testing::internal::CaptureStderr();
  call();
  return testing::internal::GetCapturedStderr();
}

TEST_F(Files, SettingsAreCompletedAtTheStartAndKeptAtTheEnd) {
  const auto read = [this] {
    start_settings(&run);
    return std::tuple(windowed, screen_width, screen_height, fullscreen_offset_x,
                      fullscreen_offset_y, run.stereo_mode, run.stereo_swap, run.stereo_depth);
  };
  const std::string mode =
      "Stereo mode (0=none,1=top/bottom,2=side-by-side,3=interlace,4=two screen "
      "SBS,5=two screen vertical,6-8=coloured): ";
  EXPECT_EQ(read(), std::tuple(1, 0, 0, 0, 0, 0, 0, 0.05));
  EXPECT_EQ(contents("config.txt"),
            "Windowed (Y/N): Y\n"
            "Resolution (XxY, 'auto', 'span', 'display N' or 'span N,M...'): auto\n" +
                mode + "0\nSwap stereo (Y/N): N\nStereo Depth: 0.05\n");
  end_settings(&run);
  const std::string first = "Windowed (Y/N): n\nResolution: 801x7\nFullscreen offset: -40, 3\n";
  write("config.txt", first + mode + "12\nSwap stereo (Y/N): t\nStereo Depth: inf\nColour: red\n");
  EXPECT_EQ(read(), std::tuple(0, 801, 7, -40, 3, 12, 1, 0.0));
  run.stereo_mode = 3;
  run.stereo_depth = 0.1234567;
  end_settings(&run);
  EXPECT_EQ(contents("config.txt"),
            first + mode + "3\nSwap stereo (Y/N): Y\nStereo Depth: 0.1234567\nColour: red\n");
}

TEST_F(Files, NoSessionIsLost) {
  const struct {
    void (*before)(), (*meanwhile)();
    const char *start_says, *end_says, *files;
  } cases[] = {{[] {}, [] {}, "", "", "maze_save.dat "},
               {[] { write("maze_save.dat", "x"); }, [] {},
                "damaged; it has been renamed to \"maze_save.dam", "",
                "maze_save.damaged-1.dat maze_save.dat "},
               {[] { fs::create_directory("maze_save.dat"); }, [] {},
                "can't be read (Is a directory)", "\"maze_save.dat\", since it is left alone",
                "maze_save.beside-1.dat maze_save.dat "},
               {[] {}, [] { write("maze_save.dat", "x"); }, "",
                "since another program has written it", "maze_save.beside-1.dat maze_save.dat "},
               {[] { fs::create_symlink("gone/save", "maze_save.dat"); }, [] {}, "",
                "(No such file or directory); it has been saved to",
                "maze_save.beside-1.dat maze_save.dat "}};
  for (const auto &[before, meanwhile, start_says, end_says, expected] : cases) {
    for (const auto &entry : fs::directory_iterator(folder))
      fs::remove(entry.path());
    before();
    const std::string start = said([&] { start_session(&run); });
    EXPECT_THAT(start, HasSubstr(start_says));
    EXPECT_EQ(start.empty(), *start_says == '\0') << start;
    meanwhile();
    const std::string end = said([&] { EXPECT_EQ(save_session(&run), SessionPlace::this_folder); });
    EXPECT_THAT(end, HasSubstr(end_says));
    EXPECT_EQ(end.empty(), *end_says == '\0') << end;
    EXPECT_EQ(files(), expected);
    World_free(&run.world);
  }
}

TEST_F(Files, ASessionGoesToAnotherFolderWhereThisOneIsGone) {
  start_session(&run);
  write("file", "");
  fs::create_directory("gone");
  fs::current_path(folder / "gone");
  fs::remove(folder / "gone");
  setenv("TMPDIR", (folder / "file/none").c_str(), 1);
  setenv("XDG_DATA_HOME", (folder / "data").c_str(), 1);
  const std::string saved = (folder / "data/vorel/maze_save.beside-1.dat").string();
  const auto save = [this](SessionPlace expected) {
    return said([&] { EXPECT_EQ(save_session(&run), expected); });
  };
  EXPECT_THAT(save(SessionPlace::another_folder),
              HasSubstr("has been saved to \"" + saved + "\"\n"));
  EXPECT_TRUE(fs::exists(saved));
  setenv("XDG_DATA_HOME", (folder / "file/none").c_str(), 1);
  EXPECT_THAT(save(SessionPlace::nowhere),
              HasSubstr("or anywhere else; what was there is unchanged"));
  World_free(&run.world);
}

TEST_F(Files, TheNewerOneOfTheSessionAndTheRecoveryFileIsResumed) {
  start_session(&run);
  run.world.time = 77.7;
  save_session(&run);
  run.world.time = 88.8;
  run.world.zoom = 3.3;
  EXPECT_THAT(said([&] { save_for_recovery(&run); }), HasSubstr("to \"maze_save.recovery.dat\""));
  const auto saved = fs::last_write_time("maze_save.dat");
  const std::tuple<int, double, const char *> cases[] = {
      {2, 88.8, "resumed from \"maze_save.recovery.dat\""},
      {-2, 77.7, "is older than the session that is resumed; it has been renamed"}};
  for (const auto &[seconds, time, words] : cases) {
    Recovery_end(&run.recovery, false); // as a process that is killed
    World_free(&run.world);
    fs::last_write_time("maze_save.recovery.dat", saved + std::chrono::seconds(seconds));
    EXPECT_THAT(said([&] { start_session(&run); }), HasSubstr(words));
    EXPECT_EQ(run.world.time, time);
  }
  World_free(&run.world);
}

} // namespace
