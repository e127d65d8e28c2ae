#include "gfx/screenshot.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <unistd.h>

#include "gfx/gl.h"
#include "picture.h"
#include "support/clock.h"

namespace fs = std::filesystem;

namespace {

// A clean folder, and a command "magick" of ours before all others.
struct Screenshot : testing::Test {
  fs::path folder = fs::temp_directory_path() / ("vorel_shot." + std::to_string(getpid()));

  void SetUp() override {
    fs::create_directories(folder / "bin");
    fs::current_path(folder);
    setenv("PATH", ((folder / "bin").string() + ":/usr/bin:/bin").c_str(), 1);
  }
  void TearDown() override {
    fs::current_path("/");
    fs::remove_all(folder);
    clock_reset();
  }
  void be_magick(const std::string &script) {
    std::ofstream(folder / "bin/magick") << "#!/bin/sh\n" << script << "\n";
    fs::permissions(folder / "bin/magick", fs::perms::owner_all);
  }
};

using Bytes = std::vector<uint8_t>;

Bytes bytes_of(const std::string &path) {
  std::ifstream file(path, std::ios::binary);
  return Bytes(std::istreambuf_iterator<char>(file), {});
}

TEST_F(Screenshot, FilesHaveTheFixedHeaderAndPaddedRows) {
  picture_begin();
  // A red pixel's square in the frame's corner at (4, 2) from the top left, on blue.
  glClearColor(0, 0, 1, 0);
  glClear(GL_COLOR_BUFFER_BIT);
  glEnable(GL_SCISSOR_TEST);
  glScissor(4, picture_height - 3, 1, 1);
  glClearColor(1, 0.2F, 0, 0);
  glClear(GL_COLOR_BUFFER_BIT);
  glDisable(GL_SCISSOR_TEST);
  glClearColor(0, 0, 0, 0);
  for (uint8_t width = 1; width <= 5; width++) {
    bmp_capture_rect(4, 1, width, 3, "part.bmp", 0);
    Bytes wanted = {'B',   'M', 0x46, 0x0E, 3, 0, 0,    0,    0, 0, 54, 0, 0, 0, 40, 0, 0,    0,
                    width, 0,   0,    0,    3, 0, 0,    0,    1, 0, 24, 0, 0, 0, 0,  0, 0x10, 0x0E,
                    3,     0,   0x12, 0x0B, 0, 0, 0x12, 0x0B, 0, 0, 0,  0, 0, 0, 0,  0, 0,    0};
    for (int y = 0; y < 3; y++) { // the bottom row first
      for (int x = 0; x < width; x++) {
        const Bytes pixel = y == 1 && x == 0 ? Bytes{0, 51, 255} : Bytes{255, 0, 0};
        wanted.insert(wanted.end(), pixel.begin(), pixel.end());
      }
      wanted.resize((wanted.size() - 54 + 3) / 4 * 4 + 54);
    }
    EXPECT_EQ(bytes_of("part.bmp"), wanted) << "width " << int{width};
  }
}

TEST_F(Screenshot, TheBmpGoesOnlyForAPngThatIsNew) {
  const std::vector<uint8_t> pixels(64);
  be_magick("[ \"$1 $2\" = '-quality 95' ] && cp \"$3\" \"$4\"; exit 3");
  bmp_write(pixels.data(), 4, 4, "my shot.v2.bmp", 1);
  EXPECT_TRUE(fs::exists("my shot.v2.png")) << "whatever the exit status";
  EXPECT_FALSE(fs::exists("my shot.v2.bmp"));
  be_magick("exit 0");
  bmp_write(pixels.data(), 4, 4, "my shot.v2.bmp", 1);
  EXPECT_TRUE(fs::exists("my shot.v2.bmp")) << "the PNG there is another shot's";
  bmp_write(pixels.data(), 4, 4, "bare", 1);
  EXPECT_TRUE(fs::exists("bare"));
  be_magick("cp \"$3\" \"$4\"");
  bmp_write(pixels.data(), 4, 4, "bare", 1);
  bmp_write(pixels.data(), 4, 4, ".x", 1);
  EXPECT_TRUE(fs::exists("bare.png") && fs::exists(".x.png"));
  fs::create_directory("taken.bmp");
  fs::create_symlink("/dev/full", "full.bmp");
  for (const char *path : {"taken.bmp", "full.bmp"}) {
    testing::internal::CaptureStderr();
    bmp_write(pixels.data(), 4, 4, path, 1);
    EXPECT_NE(testing::internal::GetCapturedStderr().find(path), std::string::npos);
  }
}

TEST_F(Screenshot, TheNumberComesFromTheClock) {
  be_magick("exit 0");
  picture_begin();
  gfx_clock = [] { return 3000000.31; }; // 10,000,001.03 thirds of 0.9 seconds
  screenshot_save("Vorel");
  EXPECT_TRUE(fs::exists("Vorel_00001.bmp"));
  EXPECT_EQ(bytes_of("Vorel_00001.bmp").size(), 54 + 640 * 480 * 3U);
}

} // namespace
