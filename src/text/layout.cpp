#include "text/layout.h"

#include <algorithm>
#include <cmath>

#include "support/bytes.h"
#include "support/strings.h"
#include "text/control_sequence.h"
#include "text/font.h"
#include "text/style.h"

namespace {

constexpr float text_letter_spacing = 0.13F; // the gap between letters, as a part of text_gap
constexpr int32_t width_without_font = 5;
constexpr uint8_t first_printable = 8; // below, a byte's value is the number of bytes it skips
constexpr float script_unit = 256.0F;

constexpr float max_length = 1e9F; // pixels; keeps huge styles within an integer

// Truncates a length to whole pixels. NaN, such as an infinite size times 0, gives 0.
int32_t to_pixels(float length) {
  if (std::isnan(length)) return 0;
  return static_cast<int32_t>(std::clamp(length, -max_length, max_length));
}

uint8_t byte_at(const char *text) {
  return static_cast<uint8_t>(*text);
}

const uint8_t *bytes_at(const char *text) {
  return reinterpret_cast<const uint8_t *>(text);
}

float letter_gap() {
  return static_cast<float>(text_gap) * text_letter_spacing;
}

// A text being laid out.
struct Pen {
  const TextOutput *output;
  FontStyle style;                 // of the text; scripts are relative to it
  float width_scale, height_scale; // of the style or of a script
  float line_x;                    // the start of lines
  float x, y;
  float wrap_x, bottom_y; // 0 for none
  int32_t shift;          // how far a script has raised y
  bool ended;             // has passed bottom_y
};

float cell_height(const Pen *pen) {
  return static_cast<float>(pen->style.base->height) * pen->height_scale;
}

void next_line(Pen *pen, float step) {
  pen->y += step;
  pen->x = pen->line_x;
}

// Wraps to a new line.
void break_line(Pen *pen, float step) {
  next_line(pen, step);
  pen->ended = pen->bottom_y != 0.0F && pen->y > pen->bottom_y;
}

float advance_of(const Pen *pen, uint32_t code) {
  const float width = static_cast<float>(pen->style.base->glyph_width[code]);
  return std::trunc((pen->style.boldness + 1.0F) * width * pen->width_scale + letter_gap() + 0.5F);
}

void put_glyph(const Pen *pen, uint32_t code, float left) {
  const Font *font = current_font;
  const float across = 1.0F / static_cast<float>(font->tex_width);
  const float down = 1.0F / static_cast<float>(font->tex_height);
  const uint32_t x = font->glyph_x[code];
  const uint32_t y = font->glyph_y[code];
  const uint32_t width = font->glyph_width[code];
  const TextQuad quad = {left,
                         pen->y,
                         left + static_cast<float>(width) * pen->width_scale,
                         pen->y + cell_height(pen),
                         static_cast<float>(x) * across,
                         static_cast<float>(y) * down,
                         static_cast<float>(x + width) * across,
                         static_cast<float>(y + font->base->height) * down};
  pen->output->quad(&quad);
}

// Keeps the font if the size is infinite, as a script of a huge style can be.
void apply_scales(float width_scale, float height_scale, FontStyle style) {
  style.width_scale = width_scale;
  style.height_scale = height_scale;
  if (std::isfinite(width_scale) && std::isfinite(height_scale)) font_apply_style(style);
}

// Sets the size and the rise of a script, until the next one.
void change_script(Pen *pen, float size, float rise) {
  pen->output->pause();
  pen->width_scale = pen->style.width_scale * size;
  pen->height_scale = pen->style.height_scale * size;
  apply_scales(pen->width_scale, pen->height_scale, pen->style);
  const float height = static_cast<float>(pen->style.base->height) * pen->style.height_scale;
  const int32_t shift = to_pixels(rise * height + 128.0F) / 256;
  pen->y += static_cast<float>(pen->shift - shift);
  pen->shift = shift;
  pen->output->resume();
}

void execute_command(Pen *pen, const char *command) {
  const uint8_t *value = bytes_at(command) + 2;
  switch (byte_at(command + 1)) {
  case text_kind_tab:
    pen->x = load_le<float>(value);
    break;
  case text_kind_script:
    change_script(pen, static_cast<float>(load_le<uint16_t>(value)) / script_unit,
                  static_cast<float>(load_le<int16_t>(value + 2)));
    break;
  default:
    break;
  }
}

// Skips `length` bytes, but stops at a NUL.
const char *skip_within(const char *text, size_t length) {
  while (length-- > 0 && *text != '\0')
    text++;
  return text;
}

// The width of the bytes up to `end` or, if it is null, up to the NUL.
int32_t measure(const char *text, const char *end) {
  const Font *font = current_font;
  const int32_t gap = to_pixels(letter_gap() + 0.5F);
  int64_t sum = 0;
  for (const char *at = text; (end == nullptr || at < end) && *at != '\0';) {
    const uint8_t byte = byte_at(at);
    if (byte == text_line_end) break;
    if (byte < first_printable) {
      const size_t length = text_item_length(byte);
      at = length > 1 ? at + length : skip_within(at, size_t{byte} + 1);
      continue;
    }
    if (font == nullptr) {
      sum += width_without_font;
    } else {
      const float width = static_cast<float>(font->base->glyph_width[byte]);
      sum += to_pixels(width * font->width_scale * (1.0F + font->boldness) + 0.5F) + gap;
    }
    at++;
  }
  return static_cast<int32_t>(std::clamp(sum - 1, int64_t{0}, int64_t{INT32_MAX}));
}

// Whether the word after a space would extend beyond wrap_x.
bool word_overflows(const Pen *pen, const char *word, float left) {
  const char *end = word;
  while (*end != '\0' && !ascii_is_space(*end))
    end += text_item_length(byte_at(end));
  return left + static_cast<float>(measure(word, end)) > pen->wrap_x;
}

void put_space(Pen *pen, const char *next, float left) {
  if (pen->wrap_x != 0.0F && word_overflows(pen, next, left)) break_line(pen, cell_height(pen) + 1);
}

void put_code(Pen *pen, uint32_t code, const char *next) {
  if (code == text_line_end) {
    next_line(pen, std::trunc(cell_height(pen) + 0.5F) + 1.0F);
    return;
  }
  if (code >= font_codes) code = 0;
  const float left = pen->x;
  pen->x += advance_of(pen, code);
  if (code == ' ') {
    put_space(pen, next, left);
    return;
  }
  put_glyph(pen, code, left);
  if (pen->wrap_x != 0.0F && *next != ' ' && pen->x > pen->wrap_x)
    break_line(pen, static_cast<float>(pen->style.base->height) + 1.0F);
}

} // namespace

float text_layout(const TextOutput *output, float x, float y, float wrap_x, float bottom_y,
                  const char *text) {
  if (text == nullptr) text = "NULL?";
  if (current_font == nullptr) return y;
  const FontStyle style = font_style_of(current_font);
  Pen pen = {output, style, style.width_scale, style.height_scale, x, x, y, wrap_x, bottom_y,
             0,      false};
  while (*text != '\0' && !pen.ended) {
    const uint8_t byte = byte_at(text);
    const char *next = text + text_item_length(byte);
    if (byte == text_command_first)
      execute_command(&pen, text);
    else
      put_code(&pen, byte == text_wide_first ? text_wide_code(bytes_at(text)) : byte, next);
    text = next;
  }
  font_apply_style(style);
  return pen.y;
}

int32_t text_width(const char *text) {
  return measure(text, nullptr);
}
