// check_statistics PICTURE SESSION: whether the picture, a binary PPM of the statistics on black
// ground, tells the visited nodes of the maze in which the session's user stands.
#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

#include "bare_font.h"
#include "text/atlas.h"
#include "text/layout.h"
#include "text/normal_font.h"
#include "world/session.h"

namespace {

struct Image {
  int width, height;
  std::vector<unsigned char> rgb;
};

GlyphRecord records[font_codes];
Image image;
int wrong;

bool read_image(const char *path) {
  std::FILE *file = std::fopen(path, "rb");
  if (!file || std::fscanf(file, "P6 %d %d 255", &image.width, &image.height) != 2) return false;
  std::fgetc(file);
  image.rgb.resize(static_cast<size_t>(image.width) * static_cast<size_t>(image.height) * 3);
  const size_t got = std::fread(image.rgb.data(), 1, image.rgb.size(), file);
  std::fclose(file);
  return got == image.rgb.size();
}

void compare(int x, int y, int grey) {
  const size_t at =
      (static_cast<size_t>(y) * static_cast<size_t>(image.width) + static_cast<size_t>(x)) * 3;
  wrong += std::abs(image.rgb.at(at) - grey) > 8;
}

// The glyph is found by its place in the texture.
void compare_glyph(const TextQuad *quad) {
  uint32_t code = 33;
  const auto at = [](float part, uint32_t size) {
    return static_cast<uint32_t>(std::lround(part * static_cast<float>(size)));
  };
  while (code + 1 < font_codes &&
         (current_font->glyph_x[code] != at(quad->tex_left, current_font->tex_width) ||
          current_font->glyph_y[code] != at(quad->tex_top, current_font->tex_height)))
    code++;
  const GlyphRecord &glyph = records[code];
  for (uint32_t y = 0; y < glyph.height; y++)
    for (uint32_t x = 0; x < glyph.width; x++) {
      const uint8_t pixel = glyph.pixels[y * glyph.width + x];
      const int grey = pixel == glyph_transparent ? 0 : pixel == 15 ? 255 : (pixel - 16) * 255 / 23;
      compare(static_cast<int>(quad->left) + static_cast<int>(x),
              static_cast<int>(quad->top) + static_cast<int>(y), grey);
    }
}

} // namespace

int main(int argc, char **argv) {
  World world;
  if (argc != 3 || !read_image(argv[1]) || World_load(&world, argv[2]) != SessionLoad::loaded)
    return 2;
  const Maze *maze = world.cur.maze;
  char words[96];
  std::snprintf(words, sizeof words, "%d / %d nodes visited (%.2f%%)", maze->visited,
                maze_count(maze), 100.0 * maze->visited / maze_count(maze));
  bare_font();
  glyph_records(normal_font.data(), normal_font_size, records);
  const TextOutput output = {compare_glyph, [] {}, [] {}};
  const float top = 4.0F * text_height;
  text_layout(&output, 0, top, 0, 0, words);
  for (int y = 0; y < text_height; y++) // and nothing behind it
    for (int x = text_width(words) + 1; x < text_width(words) + 40; x++)
      compare(x, static_cast<int>(top) + y, 0);
  const bool counted = maze->visited > 0;
  World_free(&world);
  std::printf("%s: %d pixels differ\n", words, wrong);
  return wrong == 0 && counted ? 0 : 1;
}
