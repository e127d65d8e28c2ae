#include "gfx/screenshot.h"

#include <array>
#include <cstdlib>
#include <vector>

#include "gfx/gl.h"
#include "gfx/window.h"
#include "own_folder.h"
#include "picture.h"
#include "support/clock.h"

namespace {

// Replaces the command "magick" by a script.
struct Screenshot : OwnFolder {
  void set_magick(const std::string &script) {
    fs::create_directory(".bin");
    setenv("PATH", ((folder / ".bin").string() + ":/usr/bin:/bin").c_str(), 1);
    write(".bin/magick", "#!/bin/sh\n" + script + "\n");
    fs::permissions(".bin/magick", fs::perms::owner_all);
  }
};

// Three by two blue pixels, with an orange one at the top left.
TEST_F(Screenshot, FrameIsSavedUnderANumberFromTheClock) {
  set_magick("exit 0");
  picture_begin();
  gfx_resize(3, 2);
  glClearColor(0, 0.2F, 1, 0);
  glClear(GL_COLOR_BUFFER_BIT);
  glEnable(GL_SCISSOR_TEST);
  glScissor(0, 1, 1, 1);
  glClearColor(1, 0.2F, 0, 0);
  glClear(GL_COLOR_BUFFER_BIT);
  glDisable(GL_SCISSOR_TEST);
  glClearColor(0, 0, 0, 0);
  gfx_clock = [] { return 345678.91; }; // 1,152,263.03 times 0.3 seconds
  screenshot_save("Vorel");
  clock_set_source(clock_steady);
  const std::string seen = contents("Vorel_52263.bmp");
  EXPECT_EQ(std::vector<uint8_t>(seen.begin(), seen.end()),
            (std::vector<uint8_t>{
                'B', 'M', 0x46, 0x0E, 3,   0,   0,    0,    0,   0,   54,   0,    0,   0,  40, 0,
                0,   0,   3,    0,    0,   0,   2,    0,    0,   0,   1,    0,    24,  0,  0,  0,
                0,   0,   0x10, 0x0E, 3,   0,   0x12, 0x0B, 0,   0,   0x12, 0x0B, 0,   0,  0,  0,
                0,   0,   0,    0,    0,   0,   255,  51,   0,   255, 51,   0,    255, 51, 0,  0,
                0,   0,   0,    51,   255, 255, 51,   0,    255, 51,  0,    0,    0,   0}));
}

TEST_F(Screenshot, BmpIsRemovedOnlyForANewPng) {
  const char *const convert =
      "[ \"$1 $2\" = '-quality 95' ] && printf '12IEND\\256B\\140\\202' >\"$4\"; exit 3";
  // The script, the path of the BMP, and all files afterwards.
  const std::array<const char *, 3> cases[] = {
      {convert, "a b.v2.bmp", ".bin a b.v2.png "},
      {"exit 0", "a b.v2.bmp", ".bin a b.v2.bmp a b.v2.png "}, // the PNG of an earlier shot
      {"echo half >\"$4\"", "a b.v2.bmp", ".bin a b.v2.bmp "},
      {convert, ".x", ".bin .x.png a b.v2.bmp "}};
  for (const auto &[script, path, expected] : cases) {
    set_magick(script);
    bmp_write("1234567890ab", 1, 3, path, 1);
    EXPECT_EQ(files(), expected);
  }
}

TEST_F(Screenshot, FailureIsReportedAndLeavesNoFile) {
  fs::create_symlink("/dev/full", "full");
  testing::internal::CaptureStderr();
  bmp_write("four", 1, 1, "full", 1);
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "vorel: the picture could not be written to \"full\" (No space left on device)\n");
  EXPECT_EQ(files(), "");
}

} // namespace
