#include "bare_font.h"

#include "text/atlas.h"
#include "text/normal_font.h"

namespace {

Font *registered() {
  static char name[] = "normal";
  static GlyphRecord records[font_codes];
  Font font = {};
  const uint32_t count = glyph_records(normal_font.data(), normal_font_size, records);
  atlas_layout(&font, records, count, 2048);
  font.max_width = 16;
  font.space_measure = 9;
  font.name = name;
  font.width_scale = 1.0F;
  font.height_scale = 1.0F;
  font.glyph_count = font_codes;
  Font *base = font_copy(&font);
  base->base = base;
  return base;
}

} // namespace

Font *bare_font() {
  static Font *base = registered();
  font_select(base);
  while (fonts.count > 1)
    font_delete(rows<Font *>(fonts)[1]);
  return base;
}
