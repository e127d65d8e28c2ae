#include "text/font_file.h"

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <utility>
#include <vector>

#include "support/memory.h"

namespace {

constexpr uint8_t mirror_x = 1;
constexpr uint8_t mirror_y = 2;
constexpr uint8_t swap_axes = 4;
constexpr uint32_t tile_codes = 64;
constexpr float first_grey = 16.0F;
constexpr float greys = 23.999F; // full coverage gives the last one, 39

enum Family : uint8_t { empty, bar, quarter_ring, tee, dot, stub, corner, fork };

// A point of a tile with the measures of strokes, in the axes of the tile. Single precision: the
// pixels of the font depend on its rounding.
struct Point {
  float x, y;
  float half_width_x, half_width_y;   // of strokes
  float curve_shift_x, curve_shift_y; // of the centres of curves
};

float clamp_positive(float v) {
  return v > 0.0F ? v : 0.0F;
}

// Whether (u, v) is outside the unit circle.
bool outside(float u, float v) {
  return u * u + v * v > 1.0F;
}

// Whether the point is between two arcs around the corner (0, 0).
bool in_quarter_ring(const Point &p) {
  const float outer_u = clamp_positive((p.x - (p.half_width_x + 0.5F) * p.curve_shift_x) /
                                       ((p.half_width_x + 0.5F) * (1.0F - p.curve_shift_x)));
  const float outer_v = clamp_positive((p.y - (p.half_width_y + 0.5F) * p.curve_shift_y) /
                                       ((p.half_width_y + 0.5F) * (1.0F - p.curve_shift_y)));
  if (outside(outer_u, outer_v)) return false;
  const float inner_u = clamp_positive((p.x + (p.half_width_x - 0.5F) * p.curve_shift_x) /
                                       ((0.5F - p.half_width_x) * (1.0F - p.curve_shift_x)));
  const float inner_v = clamp_positive((p.y + (p.half_width_y - 0.5F) * p.curve_shift_y) /
                                       ((0.5F - p.half_width_y) * (1.0F - p.curve_shift_y)));
  return outside(inner_u, inner_v);
}

// Whether it is in one of two such bands, around the corners (0, 1) and (1, 1).
bool in_fork(const Point &p) {
  const float outer_shift = p.curve_shift_x * (p.half_width_x + 0.5F);
  const float outer_width = (1.0F - p.curve_shift_x) * (p.half_width_x + 0.5F);
  const float outer_v = clamp_positive((1.0F - (p.half_width_y + 0.5F) * p.curve_shift_y - p.y) /
                                       ((p.half_width_y + 0.5F) * (1.0F - p.curve_shift_y)));
  if (outside(clamp_positive((p.x - outer_shift) / outer_width), outer_v) &&
      outside(clamp_positive((1.0F - outer_shift - p.x) / outer_width), outer_v))
    return false;
  const float inner_shift = (p.half_width_x - 0.5F) * p.curve_shift_x;
  const float inner_width = (0.5F - p.half_width_x) * (1.0F - p.curve_shift_x);
  const float inner_v = clamp_positive((p.curve_shift_y * (p.half_width_y - 0.5F) + 1.0F - p.y) /
                                       ((0.5F - p.half_width_y) * (1.0F - p.curve_shift_y)));
  return outside(clamp_positive((p.x + inner_shift) / inner_width), inner_v) &&
         outside(clamp_positive((inner_shift + 1.0F - p.x) / inner_width), inner_v);
}

bool in_corner(const Point &p) {
  const bool in_gap = p.x < 0.5F - p.half_width_x && p.y < 0.5F - p.half_width_y;
  return p.x < p.half_width_x + 0.5F && p.y < p.half_width_y + 0.5F && !in_gap;
}

bool in_dot(const Point &p, float radius) {
  const float x = p.x - 0.5F;
  const float y = p.y - 0.5F;
  return x * x + y * y < radius * radius;
}

// Returns 1 if the point (x, y) of a tile's unit square, y downward, is inside a stroke, otherwise
// 0. Bit 2 of the code swaps the axes, bits 0 and 1 mirror x and y, and bits 3 and up are the
// shape; a shape above 7 gives 2. a and b are half the stroke width along x and y, c and d shift
// the centres of curves, e is the radius of a dot as a multiple of a.
int32_t font_tile_shape(uint8_t code, float x, float y, float a, float b, float c, float d,
                        float e) {
  Point p = {x, y, a, b, c, d};
  if ((code & swap_axes) != 0) p = {y, x, b, a, d, c};
  if ((code & mirror_x) != 0) p.x = 1.0F - p.x;
  if ((code & mirror_y) != 0) p.y = 1.0F - p.y;
  const bool vertical = std::fabs(p.x - 0.5F) < p.half_width_x;
  const bool horizontal = std::fabs(p.y - 0.5F) < p.half_width_y;
  switch (code >> 3) {
  case empty:
    return 0;
  case bar:
    return vertical ? 1 : 0;
  case quarter_ring:
    return in_quarter_ring(p) ? 1 : 0;
  case tee:
    return horizontal || (p.y > 0.5F && vertical) ? 1 : 0;
  case dot:
    return in_dot(p, p.half_width_x * e) ? 1 : 0;
  case stub:
    return vertical && p.y > 0.5F - p.half_width_y ? 1 : 0;
  case corner:
    return in_corner(p) ? 1 : 0;
  case fork:
    return in_fork(p) ? 1 : 0;
  default:
    return 2;
  }
}

// The strokes of a font.
struct Strokes {
  float half_width_x, half_width_y;
  float curve_shift_x, curve_shift_y;
  float dot_scale; // radius of a dot as a multiple of half_width_x
};

// A pixel of a tile. The grid of samples is slightly rotated, so that horizontal and vertical
// edges, too, have as many levels of coverage as there are samples.
uint8_t tile_pixel(uint8_t code, int32_t px, int32_t py, int32_t width, int32_t height,
                   int32_t samples, const Strokes &s) {
  const float n = static_cast<float>(samples);
  int32_t count = 0;
  for (int32_t i = 0; i < samples; i++)
    for (int32_t j = 0; j < samples; j++) {
      const float fi = static_cast<float>(i);
      const float fj = static_cast<float>(j);
      const float x = (static_cast<float>(px) + fi / n + fj / (n * n)) / static_cast<float>(width);
      const float y = (static_cast<float>(py) + fj / n - fi / (n * n)) / static_cast<float>(height);
      count += font_tile_shape(code, x, y, s.half_width_x, s.half_width_y, s.curve_shift_x,
                               s.curve_shift_y, s.dot_scale);
    }
  if (count == 0) return glyph_transparent;
  return static_cast<uint8_t>(first_grey + static_cast<float>(count) * (greys / (n * n)));
}

// Draws all tiles and returns their pixels, tile after tile.
std::vector<uint8_t> draw_tiles(int32_t width, int32_t height, int32_t samples, const Strokes &s) {
  std::vector<uint8_t> pixels;
  pixels.reserve(size_t{tile_codes} * static_cast<size_t>(width) * static_cast<size_t>(height));
  for (uint32_t code = 0; code < tile_codes; code++)
    for (int32_t py = 0; py < height; py++)
      for (int32_t px = 0; px < width; px++)
        pixels.push_back(tile_pixel(static_cast<uint8_t>(code), px, py, width, height, samples, s));
  return pixels;
}

// Appends the record of a glyph of `across` by `down` tiles.
void put_glyph(std::vector<uint8_t> *out, const uint8_t *codes, size_t across, size_t down,
               const std::vector<uint8_t> &tiles, size_t width, size_t height) {
  out->push_back(static_cast<uint8_t>(across * width));
  out->push_back(static_cast<uint8_t>(down * height));
  for (size_t y = 0; y < down * height; y++)
    for (size_t tile = 0; tile < across; tile++) {
      const size_t code = codes[y / height * across + tile] % tile_codes;
      const auto row =
          tiles.begin() + static_cast<std::ptrdiff_t>((code * height + y % height) * width);
      out->insert(out->end(), row, row + static_cast<std::ptrdiff_t>(width));
    }
}

} // namespace

uint8_t *font_generate(const uint8_t *table, uint32_t table_size, float tile_width,
                       float tile_height, float a, float b, float c, float d, float e,
                       int32_t samples, uint8_t, uint32_t *out_size) {
  const int32_t width = static_cast<int32_t>(tile_width);
  const int32_t height = static_cast<int32_t>(tile_height);
  const std::vector<uint8_t> tiles = draw_tiles(width, height, samples, {a, b, c, d, e});
  std::vector<uint8_t> file;
  uint32_t at = 0;
  for (uint32_t glyph = 0; glyph < font_codes && at + glyph_header < table_size; glyph++) {
    const uint32_t codes = uint32_t{table[at]} * table[at + 1];
    if (codes > table_size - at - glyph_header) break;
    put_glyph(&file, table + at + glyph_header, table[at], table[at + 1], tiles,
              static_cast<size_t>(width), static_cast<size_t>(height));
    at += glyph_header + codes;
  }
  *out_size = static_cast<uint32_t>(file.size());
  uint8_t *result = static_cast<uint8_t *>(memory_block(file.size()));
  if (!file.empty()) std::memcpy(result, file.data(), file.size());
  return result;
}
