// Style strings: what comes out can be applied, and twice the same makes no second entry.
#include <cmath>
#include <string>

#include "bare_font.h"
#include "text/style.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  bare_font();
  const std::string text(reinterpret_cast<const char *>(data), size);
  FontStyle style;
  font_parse_style(&style, text.c_str());
  if (style.base == nullptr || !std::isfinite(style.width_scale + style.height_scale) ||
      !std::isfinite(style.skew + style.boldness))
    __builtin_trap();
  font_apply_style(style);
  const Font *made = current_font;
  font_select(style.base);
  font_apply(text.c_str());
  if (current_font != made || fonts.count > 2) __builtin_trap();
  return 0;
}
