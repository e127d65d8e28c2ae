// Pictures of small scenes against those that a person has approved. Where they differ, all that
// was drawn is left in drawn.ppm and the differences in differences.ppm; scripts/approve takes the
// former for the approved ones.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "app/scenes.h"
#include "gfx/gl.h"
#include "picture.h"

namespace {

// A sheet of pictures, three bytes a pixel, top row first.
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

// Where the pictures lie: in rows of one height each.
struct Shelf {
  int x = 0, y = 0, height = 0;
  void place(const Scene &scene, int width) {
    if (x + scene.width > width || scene.height != height) {
      y += height;
      x = 0;
    }
    height = scene.height;
  }
};

void put(const Picture &picture, Sheet *sheet, int left, int top, const Scene &scene) {
  for (int y = 0; y < scene.height; y++)
    for (int x = 0; x < scene.width; x++) {
      const uint32_t colour = picture_colour(picture, x, picture_height - scene.height + y);
      uint8_t *pixel = sheet->at(left + x, top + y);
      for (const int shift : {16, 8, 0})
        *pixel++ = static_cast<uint8_t>(colour >> shift);
    }
}

// The approved pictures are this driver's. With another one, thin lines may lie a pixel aside, and
// textures differ a little all over. (One that does not clamp the depths of fragments, softpipe,
// draws the rims of lines in front of everything: there it fails.)
bool is_reference_driver() {
  return std::strstr(reinterpret_cast<const char *>(glGetString(GL_RENDERER)), "llvmpipe") !=
         nullptr;
}

int channel_difference(const uint8_t *a, const uint8_t *b) {
  return std::max({std::abs(a[0] - b[0]), std::abs(a[1] - b[1]), std::abs(a[2] - b[2])});
}

// How many pixels differ by more than rounding, and by more than a texture's filter may.
struct Difference {
  int little = 0, much = 0, most = 0;
};

Difference compare(Sheet *drawn, Sheet *approved, Sheet *shown, int left, int top,
                   const Scene &scene) {
  const int reach = is_reference_driver() ? 0 : 1;
  Difference sum;
  for (int y = top; y < top + scene.height; y++)
    for (int x = left; x < left + scene.width; x++) {
      int by = 255;
      for (int v = std::max(y - reach, top); v <= std::min(y + reach, top + scene.height - 1); v++)
        for (int u = std::max(x - reach, left); u <= std::min(x + reach, left + scene.width - 1);
             u++)
          by = std::min(by, channel_difference(drawn->at(x, y), approved->at(u, v)));
      std::fill_n(shown->at(x, y), 3, static_cast<uint8_t>(by));
      sum.little += by > 6;
      sum.much += by > 40;
      sum.most = std::max(sum.most, by);
    }
  return sum;
}

// What a frame must leave as it found it; a world also leaves the depths clean.
void expect_state(const Scene &scene, const Picture &picture) {
  const auto clean = std::count(picture.depth.begin(), picture.depth.end(), 1.0F);
  EXPECT_TRUE(scene.draw != nullptr || clean == picture_width * picture_height);
  EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
  for (const GLenum off : {GL_BLEND, GL_LINE_SMOOTH, GL_LIGHTING, GL_TEXTURE_2D, GL_ALPHA_TEST})
    EXPECT_EQ(glIsEnabled(off), GL_FALSE) << std::hex << off;
  EXPECT_EQ(glIsEnabled(GL_DEPTH_TEST), GL_TRUE);
  float value[4] = {};
  glGetFloatv(GL_LINE_WIDTH, value);
  EXPECT_EQ(value[0], 1);
  glGetFloatv(GL_DEPTH_WRITEMASK, value);
  EXPECT_EQ(value[0], 1);
  glGetFloatv(GL_CURRENT_PROGRAM, value);
  EXPECT_EQ(value[0], 0);
}

TEST(Approved, PicturesAreThose) {
  Sheet drawn, approved = read_sheet(VOREL_APPROVED), shown;
  ASSERT_EQ(approved.width, drawn.width);
  Shelf shelf;
  bool same = true;
  for (const Scene &scene : scenes) {
    SCOPED_TRACE(scene.name);
    shelf.place(scene, drawn.width);
    drawn.grow(shelf.y + scene.height);
    approved.grow(drawn.height);
    shown.grow(drawn.height);
    picture_begin();
    scene_frame(scene);
    const Picture picture = picture_take();
    expect_state(scene, picture);
    put(picture, &drawn, shelf.x, shelf.y, scene);
    const Difference off = compare(&drawn, &approved, &shown, shelf.x, shelf.y, scene);
    const bool reference = is_reference_driver();
    const bool good = off.little <= (reference ? 30 : 1200) && off.much <= (reference ? 8 : 40);
    EXPECT_TRUE(good) << off.little << " pixels differ, " << off.much << " of them much, by "
                      << off.most << " at most; see drawn.ppm at " << shelf.x << ", " << shelf.y;
    same = same && good;
    shelf.x += scene.width;
  }
  if (same) return;
  write_sheet(drawn, "drawn.ppm");
  write_sheet(shown, "differences.ppm");
}

} // namespace
