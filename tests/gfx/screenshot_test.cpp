#include "gfx/screenshot.h"

#include <cstdlib>
#include <vector>

#include "gfx/gl.h"
#include "own_folder.h"
#include "picture.h"
#include "support/clock.h"

namespace {

// The command "magick" is a script.
struct Screenshot : OwnFolder {
  const fs::path magick = fs::temp_directory_path() / ("vorel_bin." + std::to_string(getpid()));

  void SetUp() override {
    fs::create_directory(magick);
    setenv("PATH", (magick.string() + ":/usr/bin:/bin").c_str(), 1);
  }
  void TearDown() override {
    fs::remove_all(magick);
    clock_reset();
  }
  void set_magick(const std::string &script) {
    std::ofstream(magick / "magick") << "#!/bin/sh\n" << script << "\n";
    fs::permissions(magick / "magick", fs::perms::owner_all);
  }
};

// Three pixels by two of a blue frame, with an orange one on the left of the upper row.
TEST_F(Screenshot, FilesHaveTheFixedHeaderAndPaddedRows) {
  picture_begin();
  glClearColor(0, 0, 1, 0);
  glClear(GL_COLOR_BUFFER_BIT);
  glEnable(GL_SCISSOR_TEST);
  glScissor(4, picture_height - 3, 1, 1);
  glClearColor(1, 0.2F, 0, 0);
  glClear(GL_COLOR_BUFFER_BIT);
  glDisable(GL_SCISSOR_TEST);
  glClearColor(0, 0, 0, 0);
  bmp_capture_rect(4, 2, 3, 2, "part.bmp", 0);
  const std::string seen = contents("part.bmp");
  EXPECT_EQ(std::vector<uint8_t>(seen.begin(), seen.end()),
            (std::vector<uint8_t>{'B',  'M', 0x46, 0x0E, 3,    0,   0, 0,   0,    0,    54, 0, 0,
                                  0,    40,  0,    0,    0,    3,   0, 0,   0,    2,    0,  0, 0,
                                  1,    0,   24,   0,    0,    0,   0, 0,   0x10, 0x0E, 3,  0, 0x12,
                                  0x0B, 0,   0,    0x12, 0x0B, 0,   0, 0,   0,    0,    0,  0, 0,
                                  0,    0,   255,  0,    0,    255, 0, 0,   255,  0,    0,  0, 0,
                                  0,    0,   51,   255,  255,  0,   0, 255, 0,    0,    0,  0, 0}));
}

TEST_F(Screenshot, TheBmpIsRemovedOnlyForANewPng) {
  const char *const convert = "[ \"$1 $2\" = '-quality 95' ] && cp \"$3\" \"$4\"; exit 3";
  const struct {
    const char *script, *path, *files; // all files afterwards
  } cases[] = {{convert, "a b.v2.bmp", "a b.v2.png "},
               {"exit 0", "a b.v2.bmp", "a b.v2.bmp a b.v2.png "}, // of an earlier shot
               {"exit 0", "bare", "a b.v2.bmp a b.v2.png bare "},
               {convert, "bare", "a b.v2.bmp a b.v2.png bare.png "},
               {convert, ".x", ".x.png a b.v2.bmp a b.v2.png bare.png "}};
  const std::vector<uint8_t> pixels(64);
  for (const auto &[script, path, expected] : cases) {
    set_magick(script);
    bmp_write(pixels.data(), 4, 4, path, 1);
    EXPECT_EQ(files(), expected);
  }
}

TEST_F(Screenshot, AFailureIsReportedAndLeavesNothing) {
  fs::create_symlink("/dev/full", "full");
  testing::internal::CaptureStderr();
  bmp_write("four", 1, 1, "full", 1);
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "vorel: the picture could not be written to \"full\" (No space left on device)\n");
  EXPECT_EQ(files(), "");
}

TEST_F(Screenshot, TheWholeFrameIsSavedUnderANumberFromTheClock) {
  set_magick("exit 0");
  picture_begin();
  gfx_clock = [] { return 3000000.31; }; // 10,000,001.03 times 0.3 seconds
  screenshot_save("Vorel");
  EXPECT_EQ(files(), "Vorel_00001.bmp ");
  EXPECT_EQ(contents("Vorel_00001.bmp").size(), 54 + 640 * 480 * 3U);
}

} // namespace
