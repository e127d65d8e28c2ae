#include "text/style.h"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <numbers>
#include <string>

#include "support/random.h"
#include "support/strings.h"

namespace {

constexpr double big_scale = 1.5;
constexpr double small_scale = 0.6666666666666666;
constexpr double italic_skew = 0.4;
constexpr double percent = 0.01;
constexpr double per_octave = 20.49593431428785; // weight of a ratio of sizes
constexpr double min_source_score = -1e20;
constexpr double other_base_score = -1000.0;

Font *font_named(const std::string &name) {
  for (uint32_t i = 0; i < fonts.count; i++) {
    Font *font = rows<Font *>(fonts)[i];
    if (ascii_equal_nocase(font->name, name.c_str())) return font;
  }
  return nullptr;
}

// For a name that no font has.
Font *fallback_base(const char *text) {
  if (current_font != nullptr) return current_font->base;
  if (fonts.count == 0) return font_make_blank(text);
  return rows<Font *>(fonts)[rand_int(static_cast<int32_t>(fonts.count))]->base;
}

// The value of an attribute.
struct Value {
  double number; // percentages are already divided by 100
  bool missing;  // there is no "="
  bool pixels;   // "px"
  bool degrees;  // the degree sign
};

Value value_of(const char *equals) {
  if (equals == nullptr) return {0, true, false, false};
  const double number = std::strtod(equals + 1, nullptr);
  const bool percentage = std::strchr(equals, '%') != nullptr;
  const bool pixels = std::strstr(equals, "px") != nullptr;
  return {percentage && !pixels ? number * percent : number, false, pixels,
          std::strchr(equals, '\xB0') != nullptr};
}

void scale_by(float *scale, double factor) {
  *scale = static_cast<float>(static_cast<double>(*scale) * factor);
}

void add_to(float *sum, double term) {
  *sum = static_cast<float>(static_cast<double>(*sum) + term);
}

// Sets a scale from pixels of the cell's height, or multiplies it by a number.
void set_scale(float *scale, const Value &value, double cell) {
  if (value.pixels)
    *scale = static_cast<float>(value.number / cell);
  else
    scale_by(scale, value.number);
}

void set_skew(float *skew, const Value &value, double cell) {
  if (value.degrees && !value.pixels)
    *skew = static_cast<float>(std::tan(value.number * std::numbers::pi / 180.0));
  else
    add_to(skew, value.pixels ? value.number / cell : value.number);
}

struct Weight {
  const char *word;
  double bolder, wider;
};
constexpr Weight weights[] = {{"demibold", 0.03, 1.0}, {"bold", 0.05, 1.1}, {"black", 0.08, 1.2}};

bool apply_weight(FontStyle *style, const char *key) {
  for (const Weight &weight : weights)
    if (ascii_equal_nocase(key, weight.word)) {
      add_to(&style->boldness, weight.bolder);
      scale_by(&style->width_scale, weight.wider);
      return true;
    }
  return false;
}

// Applies an attribute that has no value. False if it is not one.
bool apply_word(FontStyle *style, const char *key) {
  const auto is = [key](const char *word) { return ascii_equal_nocase(key, word); };
  const bool enlarges = is("big");
  if (is("normal")) {
    Font *base = style->base;
    *style = font_style_default;
    style->base = base;
  } else if (enlarges || is("small")) {
    const double factor = enlarges ? big_scale : small_scale;
    scale_by(&style->width_scale, factor);
    scale_by(&style->height_scale, factor);
  } else if (is("italic")) {
    add_to(&style->skew, italic_skew);
  } else {
    return apply_weight(style, key);
  }
  return true;
}

void apply_value(FontStyle *style, const char *key, const Value &value) {
  const auto is = [key](const char *word) { return ascii_equal_nocase(key, word); };
  const double cell = style->base->height;
  const bool both = is("scale") || is("size");
  if (both || is("width")) set_scale(&style->width_scale, value, cell);
  if (both || is("height")) set_scale(&style->height_scale, value, cell);
  if (is("boldness"))
    add_to(&style->boldness, value.pixels ? value.number / style->base->max_width : value.number);
  if (is("skew") || is("angle")) set_skew(&style->skew, value, cell);
}

bool is_finite(const FontStyle &style) {
  return std::isfinite(style.width_scale) && std::isfinite(style.height_scale) &&
         std::isfinite(style.skew) && std::isfinite(style.boldness);
}

void apply_attribute(FontStyle *style, const std::string &attribute) {
  const char *equals = std::strchr(attribute.c_str(), '=');
  const std::string key = attribute.substr(0, attribute.find('='));
  const Value value = value_of(equals);
  FontStyle next = *style;
  if (!apply_word(&next, key.c_str()) && !value.missing) apply_value(&next, key.c_str(), value);
  if (is_finite(next)) *style = next;
}

// Distance of two sizes: in half pixels or by their ratio, whichever is smaller. An undefined ratio
// counts as infinite.
double distance(double measure, float wanted, float has) {
  const double w = static_cast<double>(wanted);
  const double h = static_cast<double>(has);
  const double pixels = std::fabs(2.0 * measure * (w - h));
  const double ratio = per_octave * std::fabs(std::log(w / h));
  return ratio < pixels ? ratio : pixels;
}

double score(const Font *font, const FontStyle &wanted) {
  if (font->base != wanted.base) return other_base_score;
  const double look = std::fabs(static_cast<double>(wanted.boldness - font->boldness)) * 50.0 +
                      std::fabs(static_cast<double>(wanted.skew - font->skew)) * 20.0;
  const double size = distance(wanted.base->max_width, wanted.width_scale, font->width_scale) +
                      distance(wanted.base->height, wanted.height_scale, font->height_scale);
  return 1.0 - look - size * 0.5;
}

void append_attribute(std::string *name, const char *format, float value, float unless) {
  if (value == unless) return;
  char words[64];
  std::snprintf(words, sizeof words, format, static_cast<double>(value));
  *name += words;
}

Font *style_new(const Font *source, const FontStyle &style) {
  Font *font = font_copy(source);
  std::string name = font->name;
  append_attribute(&name, ":width=%g", style.width_scale, 1.0F);
  append_attribute(&name, ":height=%g", style.height_scale, 1.0F);
  append_attribute(&name, ":boldness=%g", style.boldness, 0.0F);
  append_attribute(&name, ":skew=%g", style.skew, 0.0F);
  string_assign(&font->name, name.c_str());
  font->base = style.base;
  font->width_scale = style.width_scale;
  font->height_scale = style.height_scale;
  font->skew = style.skew;
  font->boldness = style.boldness;
  font->glyph_count = 0;
  font->reserved = 0;
  return font;
}

} // namespace

void font_parse_style(FontStyle *out, const char *text) {
  *out = font_style_default;
  const std::string all = text;
  size_t end = std::min(all.find(':'), all.size());
  const Font *named = font_named(all.substr(0, end));
  if (named != nullptr)
    *out = font_style_of(named);
  else
    out->base = fallback_base(text);
  while (end < all.size()) {
    const size_t start = end + 1;
    end = std::min(all.find(':', start), all.size());
    apply_attribute(out, all.substr(start, end - start));
  }
}

Font *font_find_style(Font *base, float width, float height, float skew, float boldness) {
  assert(base != nullptr);
  const FontStyle wanted = {base, width, height, skew, boldness, 0, 0};
  Font *best = nullptr;
  double best_score = 0.0;
  const Font *source = base;
  double source_score = min_source_score;
  for (uint32_t i = fonts.count; i-- > 0;) {
    Font *font = rows<Font *>(fonts)[i];
    const double points = score(font, wanted);
    if (points > best_score) {
      best = font;
      best_score = points;
    }
    if (font->glyph_count == static_cast<int32_t>(font_codes) && points > source_score) {
      source = font;
      source_score = points;
    }
  }
  return best != nullptr ? best : style_new(source->base, wanted);
}

void font_apply_style(FontStyle style) {
  if (style == current_style) return;
  Font *font = font_find_style(style.base, style.width_scale, style.height_scale, style.skew,
                               style.boldness);
  if (font != current_font) font_select(font);
  current_style = style;
}

void font_apply(const char *text) {
  if (current_font != nullptr && ascii_equal_nocase(text, current_font->name)) return;
  FontStyle style;
  font_parse_style(&style, text);
  font_apply_style(style);
}
