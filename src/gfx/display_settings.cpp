#include "gfx/display_settings.h"

#include <algorithm>

#include "gfx/screen.h"
#include "support/strings.h"

namespace {

constexpr const char *resolution_key =
    "Resolution (XxY, 'auto', 'span', 'display N' or 'span N,M...')";
constexpr const char *stereo_key =
    "Stereo mode (0=none,1=top/bottom,2=side-by-side,3=interlace,4=two screen SBS,"
    "5=two screen vertical,6-8=coloured)";
constexpr const char *swap_key = "Swap stereo (Y/N)";

const char *skip_spaces(const char *text) {
  while (ascii_is_space(*text))
    text++;
  return text;
}

const char *skip_digits(const char *text) {
  while (ascii_is_digit(*text))
    text++;
  return text;
}

// Reads an integer with an optional sign after optional white space, and moves past it. False, with
// nothing changed, if there is none. Numbers out of range are clamped.
bool scan_int(const char **text, int32_t *number) {
  const char *at = skip_spaces(*text);
  const bool negative = *at == '-';
  if (*at == '-' || *at == '+') at++;
  if (!ascii_is_digit(*at)) return false;
  int64_t value = 0;
  for (; ascii_is_digit(*at); at++)
    value = std::min<int64_t>(value * 10 + (*at - '0'), int64_t{1} << 31);
  value = negative ? -value : std::min<int64_t>(value, INT32_MAX);
  *number = static_cast<int32_t>(value);
  *text = at;
  return true;
}

// The number at the start of the text; 0 if there is none.
int32_t leading_int(const char *text) {
  int32_t number = 0;
  scan_int(&text, &number);
  return number;
}

// Reads the first number of the text and, if `between` follows, the second.
void scan_pair(const char *text, char between, int32_t *first, int32_t *second) {
  if (!scan_int(&text, first) || *text != between) return;
  text++;
  scan_int(&text, second);
}

// Skips a decimal number that starts with a digit, with its fraction and exponent.
const char *skip_number(const char *text) {
  text = skip_digits(text);
  if (*text == '.') text = skip_digits(text + 1);
  if (ascii_lower(*text) != 'e') return text;
  const char *exponent = text + 1;
  if (*exponent == '-' || *exponent == '+') exponent++;
  return ascii_is_digit(*exponent) ? skip_digits(exponent) : text;
}

// A bit for each number in the text, bit 0 for 1.
uint32_t monitor_mask(const char *text) {
  uint32_t mask = 0;
  while (*text != '\0') {
    if (!ascii_is_digit(*text)) {
      text++;
      continue;
    }
    mask |= 1U << ((static_cast<uint32_t>(leading_int(text)) - 1U) % 32U);
    text = skip_number(text);
  }
  return mask;
}

void parse_resolution(const char *text) {
  if (ascii_equal_nocase(text, "auto")) {
    screen_width = 0;
    screen_height = 0;
  } else if (ascii_starts_with_nocase(text, "display")) {
    screen_width = 0;
    screen_height = leading_int(text + 7);
  } else if (ascii_equal_nocase(text, "span")) {
    screen_width = -1;
    screen_height = -1;
  } else if (ascii_starts_with_nocase(text, "span")) {
    screen_width = -1;
    screen_height = static_cast<int32_t>(monitor_mask(text + 4));
  } else {
    scan_pair(text, 'x', &screen_width, &screen_height);
  }
}

} // namespace

void Resolution_parse(Settings *settings) {
  if (Settings_get(settings, "Resolution") == nullptr)
    Settings_default(settings, resolution_key, "auto");
  parse_resolution(Settings_get(settings, "Resolution"));
  const char *offset = Settings_get(settings, "Fullscreen offset");
  if (offset != nullptr) scan_pair(offset, ',', &fullscreen_offset_x, &fullscreen_offset_y);
}

void Display_settings_apply(Settings *settings, int32_t *stereo_mode, int32_t *stereo_swap) {
  Resolution_parse(settings);
  Settings_default(settings, stereo_key, "0");
  *stereo_mode = leading_int(Settings_get(settings, "Stereo mode"));
  Settings_default(settings, swap_key, "N");
  *stereo_swap = setting_is_true(Settings_get(settings, "Swap stereo")) ? 1 : 0;
}
