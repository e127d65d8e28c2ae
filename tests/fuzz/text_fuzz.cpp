// The layout of a text, wrapped and not, in a style: it ends, and comes back to its style.
#include <string>

#include "bare_font.h"
#include "text/layout.h"
#include "text/style.h"
#include "text/text_form.h"

static int64_t glyphs;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  constexpr const char *styles[] = {"normal", "normal:big:bold", "normal:width=0:height=-3",
                                    "normal:size=1e38:boldness=-1"};
  constexpr TextOutput output = {[](const TextQuad *) { glyphs++; }, [] {}, [] {}};
  if (size < 3) return 0;
  bare_font();
  font_apply(styles[data[0] % 4]);
  const Font *font = current_font;
  std::string text(reinterpret_cast<const char *>(data + 3), size - 3);
  text.append(text_command_length, '\0'); // a form may be cut off
  text_layout(&output, 0, 0, data[1], data[2], text.c_str());
  glyphs = 0;
  text_layout(&output, 0, 0, 0, 0, text.c_str());
  if (glyphs > static_cast<int64_t>(size) || current_font != font) __builtin_trap();
  if (text_width(text.c_str()) < 0) __builtin_trap();
  return 0;
}
