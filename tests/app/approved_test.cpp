// Compares pictures of small scenes with approved ones, which a person has looked at. If they
// differ, the new pictures are written to drawn.ppm. scripts/approve makes them the approved ones.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "app/scenes.h"
#include "gfx/gl.h"
#include "gfx/window.h"
#include "picture.h"

namespace {

// A sheet of pictures, three bytes per pixel, top row first. Pictures in a row have the same
// height.
struct Sheet {
  int width = 800, height = 0;
  std::vector<uint8_t> rgb;

  uint8_t *at(int x, int y) { return &rgb[(static_cast<size_t>(y) * width + x) * 3]; }
  void grow(int to) {
    height = std::max(height, to);
    rgb.resize(static_cast<size_t>(width) * height * 3);
  }
};

Sheet read_sheet(const char *path) {
  Sheet sheet;
  int height = 0;
  std::FILE *file = std::fopen(path, "rb");
  if (file == nullptr) return sheet;
  if (std::fscanf(file, "P6 %d %d 255%*c", &sheet.width, &height) == 2) sheet.grow(height);
  sheet.rgb.resize(std::fread(sheet.rgb.data(), 1, sheet.rgb.size(), file));
  std::fclose(file);
  return sheet;
}

void write_sheet(const Sheet &sheet, const char *path) {
  std::FILE *file = std::fopen(path, "wb");
  ASSERT_NE(file, nullptr) << path;
  std::fprintf(file, "P6 %d %d 255\n", sheet.width, sheet.height);
  std::fwrite(sheet.rgb.data(), 1, sheet.rgb.size(), file);
  std::fclose(file);
}

// The approved pictures were drawn with this driver. Another one may shift thin lines by a pixel
// and change textures a little everywhere. (The test fails with softpipe, which does not clamp
// fragment depths and so draws the rims of lines in front of everything.)
bool is_reference_driver() {
  return std::strstr(reinterpret_cast<const char *>(glGetString(GL_RENDERER)), "llvmpipe") !=
         nullptr;
}

int channel_difference(const uint8_t *a, const uint8_t *b) {
  return std::max({std::abs(a[0] - b[0]), std::abs(a[1] - b[1]), std::abs(a[2] - b[2])});
}

// A part of the sheet.
struct Frame {
  int x, y, width, height;
};

// The minimum difference from the approved pixels of the frame that are at most `reach` away.
int difference(Sheet *drawn, Sheet *approved, const Frame &frame, int x, int y, int reach) {
  int minimum = 255;
  const int top = std::max(y - reach, frame.y), left = std::max(x - reach, frame.x);
  for (int v = top; v <= std::min(y + reach, frame.y + frame.height - 1); v++)
    for (int u = left; u <= std::min(x + reach, frame.x + frame.width - 1); u++)
      minimum = std::min(minimum, channel_difference(drawn->at(x, y), approved->at(u, v)));
  return minimum;
}

// Copies a picture to the sheet. True if few pixels differ by more than rounding, and fewer by more
// than a texture filter.
bool compare(const Picture &picture, const Frame &frame, Sheet *drawn, Sheet *approved) {
  for (Sheet *sheet : {drawn, approved})
    sheet->grow(frame.y + frame.height);
  const bool reference = is_reference_driver();
  int little = 0, much = 0;
  for (int i = 0; i < frame.width * frame.height; i++) {
    const int x = frame.x + i % frame.width, y = frame.y + i / frame.width;
    const uint32_t colour =
        picture_colour(picture, x - frame.x, picture_height - frame.height + y - frame.y);
    for (const int channel : {0, 1, 2})
      drawn->at(x, y)[channel] = static_cast<uint8_t>(colour >> (16 - 8 * channel));
    const int by = difference(drawn, approved, frame, x, y, reference ? 0 : 1);
    little += by > 6;
    much += by > 40;
  }
  const bool same = little <= (reference ? 30 : 1200) && much <= (reference ? 8 : 40);
  EXPECT_TRUE(same) << little << " pixels differ, " << much << " of them by much; see drawn.ppm at "
                    << frame.x << ", " << frame.y;
  return same;
}

// The state that a frame must restore. After a tree the depth buffer is clear.
void expect_state(const Scene &scene, const Picture &picture) {
  const auto clean = std::count(picture.depth.begin(), picture.depth.end(), 1.0F);
  if (scene_number(scene, "text") < 0) {
    EXPECT_EQ(clean, picture_width * picture_height);
  }
  EXPECT_EQ(screen_width, scene_number(scene, "width"));
  EXPECT_EQ(screen_height, scene_number(scene, "height"));
  EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
  for (const GLenum off : {GL_BLEND, GL_LINE_SMOOTH, GL_LIGHTING, GL_TEXTURE_2D, GL_ALPHA_TEST})
    EXPECT_EQ(glIsEnabled(off), GL_FALSE) << std::hex << off;
  EXPECT_EQ(glIsEnabled(GL_DEPTH_TEST), GL_TRUE);
  for (const auto &[name, usual] :
       {std::pair{GL_LINE_WIDTH, 1}, {GL_DEPTH_WRITEMASK, 1}, {GL_CURRENT_PROGRAM, 0}}) {
    int value = -1;
    glGetIntegerv(static_cast<GLenum>(name), &value);
    EXPECT_EQ(value, usual) << std::hex << name;
  }
}

TEST(Approved, PicturesMatch) {
  Sheet drawn, approved = read_sheet(VOREL_APPROVED);
  ASSERT_EQ(approved.width, drawn.width);
  Frame frame = {};
  bool same = true;
  for (const Scene &scene : read_scenes()) {
    SCOPED_TRACE(scene.name);
    const int width = scene_number(scene, "width"), height = scene_number(scene, "height");
    frame.x += frame.width;
    if (frame.x + width > drawn.width || height != frame.height)
      frame = {0, frame.y + frame.height, width, height};
    frame.width = width;
    picture_begin();
    scene_frame(scene);
    const Picture picture = picture_take();
    expect_state(scene, picture);
    same &= compare(picture, frame, &drawn, &approved);
  }
  if (!same) write_sheet(drawn, "drawn.ppm");
}

} // namespace
