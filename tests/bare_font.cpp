#include "bare_font.h"

#include "text/atlas.h"
#include "text/normal_font.h"

namespace {

char font_name[] = "normal";

Font laid_out() {
  Font font = {};
  GlyphRecord records[font_codes];
  const uint32_t count = glyph_records(normal_font.data(), normal_font_size, records);
  atlas_layout(&font, records, count, 2048);
  font.max_width = 16;
  font.space_measure = 9;
  font.name = font_name;
  font.width_scale = 1.0F;
  font.height_scale = 1.0F;
  font.glyph_count = font_codes;
  return font;
}

} // namespace

Font *bare_font() {
  static Font base = laid_out();
  base.base = &base;
  if (fonts.count == 0) {
    Font *copy = font_copy(&base);
    copy->base = copy;
  }
  Font *first = rows<Font *>(fonts)[0];
  font_select(first);
  while (fonts.count > 1)
    font_delete(rows<Font *>(fonts)[1]);
  return first;
}
