// The reader of font files: whatever the records are, their glyphs stand inside the picture.
#include <cstddef>
#include <vector>

#include "text/atlas.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  constexpr uint32_t limit = 2048;
  static GlyphRecord records[font_codes];
  const std::vector<uint8_t> bytes(data, data + size);
  const uint32_t count = glyph_records(bytes.data(), static_cast<uint32_t>(size), records);
  Font font = {};
  atlas_layout(&font, records, count, limit);
  for (uint32_t code = 0; code < font_codes; code++)
    if (font.glyph_width[code] > 0 &&
        (font.glyph_x[code] + font.glyph_width[code] > font.tex_width ||
         font.glyph_y[code] + font.height > font.tex_height))
      __builtin_trap();
  if (font.tex_height > limit) return 0;
  std::vector<uint8_t> image = atlas_image(&font, records, count);
  for (uint32_t level = 1; level < 4; level++) // the picture's start stands for the level
    atlas_sharpen(&font, level, font.tex_width >> level, font.tex_height >> level, image.data());
  return 0;
}
