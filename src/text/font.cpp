#include "text/font.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "gfx/gl.h"
#include "gfx/texture.h"
#include "support/file.h"
#include "support/memory.h"
#include "support/random.h"
#include "support/report.h"
#include "support/strings.h"
#include "text/atlas.h"

GrowList fonts;
Font *current_font;
FontStyle current_style = font_style_default;
uint8_t text_gap;
uint8_t text_height;
uint8_t text_max_width;

namespace {

constexpr const char *report_source = "bitmapfonts";
constexpr int32_t max_texture_size = 2048; // pixels, even if the driver allows more
constexpr int32_t measured_code = 'C';
constexpr size_t max_file_size = size_t{font_codes} * (glyph_header + 255 * 255);

void *font_rows; // mirrors the rows of `fonts`

Font *font_new(const char *name) {
  Font *font = static_cast<Font *>(memory_zeroed(sizeof(Font)));
  str_dup_into(&font->name, name);
  font->base = font;
  font->width_scale = 1.0F;
  font->height_scale = 1.0F;
  return font;
}

void font_register(Font *font) {
  if (fonts.data == nullptr) {
    GrowList_init(&fonts, sizeof(Font *));
    fonts.mirror = &font_rows;
    font_rows = fonts.data;
  }
  GrowList_append(&fonts, &font);
}

// A measure times a scale, truncated to a byte.
uint8_t scaled(uint8_t measure, float scale) {
  const float product = static_cast<float>(measure) * scale;
  return product > 0.0F ? static_cast<uint8_t>(std::min(product, 255.0F)) : uint8_t{0};
}

void measure_widths(Font *font) {
  const uint32_t widest = *std::max_element(font->glyph_width, font->glyph_width + font_codes);
  font->max_width = static_cast<uint8_t>(widest);
  font->space_measure = static_cast<uint8_t>(font->glyph_width[measured_code] + 1);
}

int32_t level_size(int32_t level, GLenum side) {
  int32_t size = 0;
  glGetTexLevelParameteriv(GL_TEXTURE_2D, level, side, &size);
  return size;
}

// Reads each mip level of the bound texture back, sharpens it and replaces it.
void sharpen_levels(const Font *font) {
  std::vector<uint8_t> pixels(size_t{font->tex_width} * font->tex_height * 4);
  int32_t width = 0;
  int32_t height = 0;
  for (int32_t level = 1; width != 1 || height != 1; level++) {
    width = level_size(level, GL_TEXTURE_WIDTH);
    height = level_size(level, GL_TEXTURE_HEIGHT);
    if (width < 1 || height < 1) return; // a texture of one level
    glGetTexImage(GL_TEXTURE_2D, level, GL_RGBA, GL_UNSIGNED_BYTE, pixels.data());
    atlas_sharpen(font, static_cast<uint32_t>(level), static_cast<uint32_t>(width),
                  static_cast<uint32_t>(height), pixels.data());
    texture_upload_level(GL_TEXTURE_2D, level, 4, width, height, pixels.data());
  }
}

[[noreturn]] void report_too_large(const Font *font, int32_t limit) {
  report_sentence(
      "the glyphs of the font \"%s\" don't fit into a texture; delete its file to have it "
      "regenerated",
      font->name);
  const std::string size = std::to_string(font->tex_width) + 'x' + std::to_string(font->tex_height);
  const std::string words = "Font '" + std::string(font->name) + "' required texture of size " +
                            size + " but GL_MAX_TEXTURE_SIZE=" + std::to_string(limit);
  report_fatal(report_source, 1328, words.c_str()); // fixed: identifies the report
}

void upload_atlas(Font *font, const GlyphRecord *records, uint32_t count) {
  std::vector<uint8_t> image = atlas_image(font, records, count);
  glGenTextures(1, &font->texture);
  glBindTexture(GL_TEXTURE_2D, font->texture);
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR_MIPMAP_LINEAR);
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
  texture_upload(GL_TEXTURE_2D, 4, static_cast<int32_t>(font->tex_width),
                 static_cast<int32_t>(font->tex_height), image.data());
  sharpen_levels(font);
}

Font *build(const GlyphRecord *glyphs, uint32_t count, const char *name) {
  Font *font = font_new(name);
  int32_t limit = 0;
  glGetIntegerv(GL_MAX_TEXTURE_SIZE, &limit);
  const uint32_t usable = static_cast<uint32_t>(std::clamp(limit, 0, max_texture_size));
  atlas_layout(font, glyphs, count, usable);
  if (font->tex_height > usable) report_too_large(font, limit);
  upload_atlas(font, glyphs, count);
  font->glyph_count = static_cast<int32_t>(font_codes);
  measure_widths(font);
  font->tex_width = static_cast<uint32_t>(level_size(0, GL_TEXTURE_WIDTH));
  font->tex_height = static_cast<uint32_t>(level_size(0, GL_TEXTURE_HEIGHT));
  font_register(font);
  if (current_font == nullptr) font_select(font);
  return font;
}

bool texture_is_shared(uint32_t texture, const Font *owner) {
  for (uint32_t i = fonts.count; i-- > 0;) {
    const Font *font = rows<Font *>(fonts)[i];
    if (font != owner && font->texture == texture) return true;
  }
  return false;
}

void unregister(const Font *font) {
  for (uint32_t i = fonts.count; i-- > 0;)
    if (rows<Font *>(fonts)[i] == font) GrowList_remove(&fonts, i);
}

// Before a base font is freed, makes one of its styles the base of the others. A style has copies
// of the glyph positions.
void replace_base(const Font *font) {
  Font *new_base = nullptr;
  for (uint32_t i = fonts.count; i-- > 0;) {
    Font *style = rows<Font *>(fonts)[i];
    if (style->base != font || style == font) continue;
    if (new_base == nullptr) new_base = style;
    new_base->glyph_count = font_codes;
    style->base = new_base;
  }
  if (current_style.base == font) current_style.base = new_base;
}

} // namespace

FontStyle font_style_of(const Font *font) {
  return {font->base,     font->width_scale, font->height_scale, font->skew,
          font->boldness, font->glyph_count, font->reserved};
}

Font *font_build(const uint8_t *records, uint32_t size, const char *name) {
  std::array<GlyphRecord, font_codes> glyphs;
  return build(glyphs.data(), glyph_records(records, size, glyphs.data()), name);
}

bool font_file_read(const char *path, std::vector<uint8_t> *bytes) {
  bytes->clear();
  FILE *file = file_open(path);
  if (file == nullptr) return false;
  uint8_t part[1 << 16];
  for (size_t got = 1; got > 0 && bytes->size() < max_file_size;) {
    got = std::fread(part, 1, sizeof part, file);
    bytes->insert(bytes->end(), part, part + got);
  }
  const bool read = std::ferror(file) == 0;
  file_close_read(file);
  return read;
}

void font_build_file(const std::vector<uint8_t> &bytes, const char *path, const char *name) {
  std::array<GlyphRecord, font_codes> glyphs;
  const uint32_t count =
      glyph_records(bytes.data(), static_cast<uint32_t>(bytes.size()), glyphs.data());
  if (count == 0) {
    report_sentence("the font file \"%s\" can't be read or holds no font; delete it to have it "
                    "regenerated",
                    path);
    const std::string words = "loadfont: '" + std::string(path) + "' not found";
    report_fatal(report_source, 1454, words.c_str()); // fixed: identifies the report
  }
  build(glyphs.data(), count, name);
}

void loadfont(const char *path, const char *name) {
  std::vector<uint8_t> bytes;
  font_file_read(path, &bytes); // on failure builds the font of what could be read
  font_build_file(bytes, path, name);
}

Font *font_copy(const Font *source) {
  Font *font = font_new(source->name);
  char *name = font->name;
  *font = *source;
  font->name = name;
  font_register(font);
  return font;
}

void font_select(Font *font) {
  if (font == nullptr || font == current_font) return;
  current_font = font;
  current_style = font_style_of(font);
  const Font *base = font->base;
  text_max_width = scaled(base->max_width, font->width_scale);
  text_height = scaled(base->height, font->height_scale);
  text_gap = scaled(base->space_measure, font->width_scale);
}

void font_delete(Font *font) {
  if (!texture_is_shared(font->texture, font)) glDeleteTextures(1, &font->texture);
  unregister(font);
  replace_base(font);
  const bool was_current = font == current_font;
  std::free(font->name);
  std::free(font);
  if (!was_current) return;
  current_font = nullptr;
  if (fonts.count > 0)
    font_select(rows<Font *>(fonts)[rand_int(static_cast<int32_t>(fonts.count))]);
}

Font *font_make_blank(const char *name) {
  Font *blank = font_new(name); // before deleting: `name` may belong to a font of that name
  const uint32_t scanned = fonts.count;
  for (uint32_t i = fonts.count; i-- > 0;) {
    Font *font = rows<Font *>(fonts)[i];
    if (ascii_equal_nocase(font->name, name)) font_delete(font);
  }
  const uint8_t pixel[3] = {1, 1, 1};
  glGenTextures(1, &blank->texture);
  glBindTexture(GL_TEXTURE_2D, blank->texture);
  glTexImage2D(GL_TEXTURE_2D, 0, GL_RGB, 1, 1, 0, GL_RGB, GL_UNSIGNED_BYTE, pixel);
  glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, GL_MODULATE);
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR_MIPMAP_LINEAR);
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
  blank->tex_width = 1;
  blank->tex_height = 1;
  if (scanned < font_codes) blank->glyph_width[scanned] = 1;
  font_register(blank);
  return blank;
}
