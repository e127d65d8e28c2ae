#include "text/atlas.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "support/bits.h"
#include "text/palette.h"

namespace {

constexpr float byte_scale = 255.9F; // of a component from 0 to 1, truncated
constexpr uint32_t components = 4;
constexpr uint8_t opaque = 255;

// Ranges of codes to sharpen, both ends included.
struct CodeRange {
  uint32_t first, last;
};
constexpr CodeRange sharpened[] = {{48, 57}, {256, 383}};

using ByteTable = std::array<uint8_t, 256>;

// Maps a brightness relative to the peak to the brightness to write.
ByteTable sharpening_table() {
  ByteTable table = {};
  for (size_t i = 1; i < table.size(); i++)
    table[i] =
        static_cast<uint8_t>(255.9 * std::pow(static_cast<double>(i) * 0.003907776475185619, 0.4));
  return table;
}

struct Rectangle {
  uint32_t left, top, right, bottom;
};

// The cell of a glyph in a mip level, clipped: a code without a glyph can be outside.
Rectangle cell_in_level(const Font *font, uint32_t code, uint32_t level, uint32_t width,
                        uint32_t height) {
  const uint32_t left = font->glyph_x[code] >> level;
  const uint32_t right = left + (font->glyph_width[code] >> level);
  return {std::min(left, width), std::min(font->glyph_y[code] >> level, height),
          std::min(right, width), std::min((font->glyph_y[code] + font->height) >> level, height)};
}

void sharpen_cell(Rectangle cell, uint32_t width, uint8_t *pixels, const ByteTable &sharper) {
  const auto each_byte = [&](auto &&visit) {
    for (uint32_t y = cell.top; y < cell.bottom; y++)
      for (uint32_t x = cell.left * components; x < cell.right * components; x++)
        visit(pixels[size_t{y} * width * components + x]);
  };
  double peak = 0.001;
  each_byte([&](uint8_t byte) { peak = std::max(peak, static_cast<double>(byte)); });
  each_byte([&](uint8_t &byte) { byte = sharper[static_cast<size_t>(byte * 255.4 / peak)]; });
}

// The palette as bytes: red, green and blue of each colour.
std::array<std::array<uint8_t, 3>, palette_size> palette_bytes() {
  std::array<float, palette_size> red, green, blue;
  palette_build(red.data(), green.data(), blue.data());
  std::array<std::array<uint8_t, 3>, palette_size> bytes = {};
  const auto byte = [](float component) { return static_cast<uint8_t>(component * byte_scale); };
  for (size_t i = 0; i < bytes.size(); i++)
    bytes[i] = {byte(red[i]), byte(green[i]), byte(blue[i])};
  return bytes;
}

} // namespace

uint32_t glyph_records(const uint8_t *bytes, uint32_t size, GlyphRecord *out) {
  uint32_t count = 0;
  for (uint32_t at = 0; count < font_codes && size - at >= glyph_header; count++) {
    const uint32_t width = bytes[at];
    const uint32_t height = bytes[at + 1];
    at += glyph_header;
    if (width * height > size - at) break;
    out[count] = {width, height, bytes + at};
    at += width * height;
  }
  return count;
}

void atlas_layout(Font *font, const GlyphRecord *records, uint32_t count, uint32_t limit) {
  uint32_t height = 1;
  for (uint32_t i = count; i-- > 0;)
    height = std::max(height, records[i].height);
  const uint32_t pad = count == 0 ? 0 : height / 4;
  uint32_t pen_x = 0;
  uint32_t pen_y = 0;
  uint32_t right_edge = 1;
  for (uint32_t code = 0; code < font_codes; code++) {
    const uint32_t width = code < count ? records[code].width : 0;
    if (code < count && pen_x + width + pad > limit) {
      pen_x = 0;
      pen_y += height + pad;
    }
    font->glyph_x[code] = pen_x;
    font->glyph_y[code] = pen_y;
    font->glyph_width[code] = width;
    if (code >= count) continue;
    pen_x += width + pad;
    right_edge = std::max(right_edge, font->glyph_x[code] + width);
  }
  font->height = static_cast<uint8_t>(height);
  font->tex_width = next_power_of_two(right_edge);
  font->tex_height = next_power_of_two(height + pen_y);
}

std::vector<uint8_t> atlas_image(const Font *font, const GlyphRecord *records, uint32_t count) {
  const auto colours = palette_bytes();
  std::vector<uint8_t> image(size_t{font->tex_width} * font->tex_height * components);
  for (uint32_t code = 0; code < count; code++) {
    const uint8_t *from = records[code].pixels;
    for (uint32_t y = 0; y < records[code].height; y++) {
      const size_t row = size_t{font->glyph_y[code] + y} * font->tex_width;
      uint8_t *to = image.data() + (row + font->glyph_x[code]) * components;
      for (uint32_t x = 0; x < records[code].width; x++, from++, to += components) {
        if (*from == glyph_transparent) continue;
        std::copy_n(colours[*from].data(), 3, to);
        to[3] = opaque;
      }
    }
  }
  return image;
}

void atlas_sharpen(const Font *font, uint32_t level, uint32_t width, uint32_t height,
                   uint8_t *pixels) {
  static const ByteTable sharper = sharpening_table();
  for (const CodeRange range : sharpened)
    for (uint32_t code = range.first; code <= range.last; code++)
      sharpen_cell(cell_in_level(font, code, level, width, height), width, pixels, sharper);
}
