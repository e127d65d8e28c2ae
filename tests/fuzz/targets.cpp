// The fuzz targets. The environment variable FUZZ_TARGET selects one.
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "gfx/display_settings.h"
#include "maze/pos.h"
#include "text/atlas.h"
#include "text/layout.h"
#include "text/normal_font.h"
#include "text/prepare.h"
#include "text/style.h"
#include "world/session.h"

namespace {

void require(bool holds) {
  if (!holds) __builtin_trap();
}

// Glyphs stay inside the atlas.
void fuzz_font(const std::string &bytes) {
  constexpr uint32_t limit = 2048;
  static GlyphRecord records[font_codes];
  const std::vector<uint8_t> file(
      bytes.begin(), bytes.end()); // no padding, so that a read past the end is noticed
  const uint32_t count = glyph_records(file.data(), static_cast<uint32_t>(file.size()), records);
  Font font = {};
  atlas_layout(&font, records, count, limit);
  for (uint32_t code = 0; code < font_codes; code++) {
    if (font.glyph_width[code] == 0) continue;
    require(font.glyph_x[code] + font.glyph_width[code] <= font.tex_width);
    require(font.glyph_y[code] + font.height <= font.tex_height);
  }
  if (font.tex_height > limit) return;
  std::vector<uint8_t> image = atlas_image(&font, records, count);
  for (uint32_t level = 1; level < 4; level++) // any bytes serve as a level
    atlas_sharpen(&font, level, font.tex_width >> level, font.tex_height >> level, image.data());
}

// Makes the font "normal", without a texture, the only one and current.
void start_with_bare_font() {
  static GlyphRecord records[font_codes];
  char name[] = "normal";
  Font font = {};
  while (fonts.count > 0)
    font_delete(rows<Font *>(fonts)[0]);
  atlas_layout(&font, records, glyph_records(normal_font.data(), normal_font_size, records), 2048);
  font.max_width = 16;
  font.name = name;
  font.width_scale = font.height_scale = 1;
  font.glyph_count = font_codes;
  Font *base = font_copy(&font);
  base->base = base;
  font_select(base);
}

// A style can be applied. Applying it again adds no entry.
void fuzz_style(const std::string &text) {
  start_with_bare_font();
  FontStyle style;
  font_parse_style(&style, text.c_str());
  require(std::isfinite(style.width_scale + style.height_scale + style.skew + style.boldness));
  font_apply_style(style);
  const Font *made = current_font;
  font_select(style.base);
  font_apply(text.c_str());
  require(current_font == made && fonts.count <= 2);
}

// The layout ends and restores its style. Commands can be cut off.
void fuzz_text(const std::string &bytes) {
  static size_t glyphs;
  constexpr const char *styles[] = {"normal", "normal:big:bold", "normal:width=0:height=-3",
                                    "normal:size=1e38:boldness=-1"};
  constexpr TextOutput output = {[](const TextQuad *) { glyphs++; }, [] {}, [] {}};
  if (bytes.size() < 3) return;
  start_with_bare_font();
  font_apply(styles[bytes[0] & 3]);
  const Font *font = current_font;
  const std::string text = bytes.substr(3) + std::string(text_command_length, '\0');
  const float wrap = static_cast<uint8_t>(bytes[1]), bottom = static_cast<uint8_t>(bytes[2]);
  glyphs = 0;
  text_layout(&output, 0, 0, wrap, bottom, text.c_str());
  require(glyphs <= bytes.size() && current_font == font && text_width(text.c_str()) >= 0);
}

// The result fits into a buffer of text_prepare_room bytes.
void fuzz_prepare(const std::string &bytes) {
  if (bytes.empty()) return;
  const std::string text = bytes.substr(1) + std::string(text_command_length, '\0');
  const size_t length = static_cast<size_t>(text_end_of(text.c_str()) - text.c_str());
  std::vector<char> buffer(text_prepare_room(length));
  std::memcpy(buffer.data(), text.c_str(), length);
  text_prepare(buffer.data(), static_cast<uint8_t>(bytes[0]));
  text_prepare_tags(buffer.data());
  require(text_end_of(buffer.data()) < buffer.data() + buffer.size());
}

// Settings that were read can be found and applied.
void fuzz_settings(const std::string &bytes) {
  std::string copy = bytes;
  FILE *file = copy.empty() ? std::tmpfile() : fmemopen(copy.data(), copy.size(), "rb");
  Settings list;
  Settings_read(&list, file, ':');
  std::fclose(file);
  for (uint32_t i = list.count; i-- > 0;)
    require(Settings_get(&list, rows<SettingsEntry>(list)[i].key) != nullptr);
  int32_t mode = 0, swap = 0;
  Display_settings_apply(&list, &mode, &swap);
  require(swap == 0 || swap == 1);
  Settings_free(&list);
}

void check_edges(Maze *maze) {
  for (int32_t i = 0; i < maze_count(maze); i++) {
    Pos list[pos_max_edges];
    if (Maze *below = maze_nodes(maze)[i].submaze)
      check_edges(below);
    else
      for (int32_t k = Pos_alledges(maze, i, list, nullptr); k-- > 0;)
        require(maze_nodes(list[k].maze)[list[k].node].submaze == nullptr);
  }
}

std::string written(const World &world) {
  char *bytes = nullptr;
  size_t size = 0;
  const auto out = std::make_unique<ByteWriter>();
  out->file = open_memstream(&bytes, &size);
  World_write(&world, out.get());
  std::fclose(out->file);
  const std::string all(bytes, size);
  std::free(bytes);
  return all;
}

// From a file, through a small buffer.
bool read(std::string bytes, World *world) {
  uint8_t buffer[256];
  FILE *file = fmemopen(bytes.data(), bytes.size(), "rb");
  ByteReader in = file_reader(file, bytes.size(), buffer, sizeof buffer);
  const bool valid = World_read(world, &in);
  std::fclose(file);
  return valid;
}

// The edges of a valid session lead to places, and saving it again gives the same bytes.
void fuzz_session(const std::string &bytes) {
  World first, second;
  if (bytes.empty() || !read(bytes, &first)) return;
  check_edges(first.root);
  const std::string all = written(first);
  require(read(all, &second));
  require(written(second) == all);
  World_free(&first);
  World_free(&second);
}

constexpr struct {
  const char *name;
  void (*run)(const std::string &bytes);
} targets[] = {{"font", fuzz_font},       {"style", fuzz_style},       {"text", fuzz_text},
               {"prepare", fuzz_prepare}, {"settings", fuzz_settings}, {"session", fuzz_session}};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  static const std::string name = std::getenv("FUZZ_TARGET");
  for (const auto &target : targets)
    if (name == target.name) {
      target.run({data, data + size});
      return 0;
    }
  __builtin_trap();
}
