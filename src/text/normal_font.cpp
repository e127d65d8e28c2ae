#include "text/normal_font.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "text/font_file.h"

namespace {

constexpr std::string_view art =
#include "text/normal_font.art"
    ;

struct GlyphArt {
  size_t rows = 0; // offset of the first row in the art
  uint8_t width = 0;
  uint8_t height = 0; // 0 while the code has no glyph
};

struct ArtGlyphs {
  std::array<GlyphArt, font_codes> of_code{};
  uint32_t line = 1;     // being read
  uint32_t bad_line = 0; // the first malformed line; 0 for none
};

struct PackedFont {
  std::array<uint8_t, normal_font_size> bytes{};
  uint32_t size = 0; // of all records, even if it exceeds `bytes`
};

constexpr uint8_t not_a_mark = 0;

constexpr uint8_t pixel_of(char mark) {
  if (mark >= 'a' && mark <= 'v') return static_cast<uint8_t>(17 + (mark - 'a'));
  switch (mark) {
  case '.':
    return glyph_transparent;
  case '#':
    return 39;
  case '*':
    return 15;
  case 'R':
    return 12;
  case 'D':
    return 4;
  case 'B':
    return 1;
  default:
    return not_a_mark;
  }
}

constexpr char art_at(size_t at) {
  return at < art.size() ? art[at] : '\0';
}

// Reads a number and moves past it. Gives 512 for no digit and for numbers above 511: neither a
// code nor a size.
constexpr uint32_t read_number(size_t *at) {
  uint32_t number = 0;
  const size_t first = *at;
  for (; art_at(*at) >= '0' && art_at(*at) <= '9'; ++*at) {
    number = number * 10 + static_cast<uint32_t>(art[*at] - '0');
    if (number >= font_codes) number = font_codes;
  }
  return *at == first ? font_codes : number;
}

constexpr bool accept(size_t *at, char wanted) {
  if (art_at(*at) != wanted) return false;
  ++*at;
  return true;
}

constexpr bool row_is_valid(size_t at, uint32_t width) {
  for (uint32_t x = 0; x < width; x++)
    if (pixel_of(art_at(at + x)) == not_a_mark) return false;
  return art_at(at + width) == '\n';
}

// Assigns a glyph to the codes and ranges of codes at the start of an entry. False if the list is
// malformed or a code has a glyph already.
constexpr bool assign_codes(ArtGlyphs *glyphs, size_t at, GlyphArt glyph) {
  do {
    const uint32_t first = read_number(&at);
    const uint32_t last = accept(&at, '-') ? read_number(&at) : first;
    if (last >= font_codes || first > last) return false;
    for (uint32_t code = first; code <= last; code++) {
      if (glyphs->of_code[code].height != 0) return false;
      glyphs->of_code[code] = glyph;
    }
  } while (accept(&at, ','));
  return art_at(at) == ' ';
}

// Reads an entry and moves past it: a line with codes, name and size, then the rows.
constexpr bool read_entry(ArtGlyphs *glyphs, size_t *at) {
  const size_t codes = *at;
  for (int word = 0; word < 2; word++) {
    const size_t space = art.find(' ', *at);
    if (space == art.npos) return false;
    *at = space + 1;
  }
  const uint32_t width = read_number(at);
  if (!accept(at, 'x')) return false;
  const uint32_t height = read_number(at);
  if (!accept(at, '\n') || width - 1 >= 255 || height - 1 >= 255) return false;
  const GlyphArt glyph = {*at, static_cast<uint8_t>(width), static_cast<uint8_t>(height)};
  if (!assign_codes(glyphs, codes, glyph)) return false;
  glyphs->line++;
  for (uint32_t y = 0; y < height; y++, glyphs->line++, *at += width + 1)
    if (!row_is_valid(*at, width)) return false;
  return true;
}

constexpr ArtGlyphs read_art() {
  ArtGlyphs glyphs;
  for (size_t at = 0; at < art.size();) {
    if (art[at] == '\n' || art[at] == '/') {
      at = std::min(art.find('\n', at), art.size()) + 1;
      glyphs.line++;
    } else if (!read_entry(&glyphs, &at)) {
      glyphs.bad_line = glyphs.line;
      return glyphs;
    }
  }
  for (const GlyphArt &glyph : glyphs.of_code)
    if (glyph.height == 0) glyphs.bad_line = glyphs.line;
  return glyphs;
}

constexpr void put(PackedFont *font, uint8_t byte) {
  if (font->size < font->bytes.size()) font->bytes[font->size] = byte;
  font->size++;
}

constexpr PackedFont pack(const ArtGlyphs &glyphs) {
  PackedFont font;
  for (const GlyphArt &glyph : glyphs.of_code) {
    put(&font, glyph.width);
    put(&font, glyph.height);
    for (size_t y = 0; y < glyph.height; y++) {
      const size_t row = glyph.rows + y * (glyph.width + size_t{1});
      for (size_t x = 0; x < glyph.width; x++)
        put(&font, pixel_of(art[row + x]));
    }
  }
  return font;
}

constexpr ArtGlyphs read = read_art();
static_assert(read.bad_line == 0, "a malformed line, a repeated code, or at the end a missing one");
constexpr PackedFont packed = pack(read);
static_assert(packed.size == normal_font_size);

} // namespace

constinit const std::array<uint8_t, normal_font_size> normal_font = packed.bytes;
