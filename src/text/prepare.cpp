#include "text/prepare.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <string>
#include <vector>

#include "support/strings.h"

namespace {

// The names of the glyphs 256 to 279; their capitals follow in the same order.
constexpr const char *greek_names[] = {"alpha", "beta",    "gamma",   "delta", "epsilon", "zeta",
                                       "eta",   "theta",   "iota",    "kappa", "lambda",  "mu",
                                       "nu",    "xi",      "omicron", "pi",    "rho",     "sigma",
                                       "tau",   "upsilon", "phi",     "chi",   "psi",     "omega"};
constexpr uint32_t greek_count = std::size(greek_names);
constexpr uint32_t greek_first = 256;

// The names of the glyphs 304 and up.
constexpr const char *variant_names[] = {"vardelta", "varzeta", "vartheta", "varphi", "varomega"};
constexpr uint32_t variant_count = std::size(variant_names);
constexpr uint32_t variant_first = greek_first + 2 * greek_count;

struct Tag {
  const char *start;
  uint8_t kind;
};

constexpr Tag tags[] = {{"#col=", text_kind_nothing}, {"#tab=", text_kind_tab}};

// Reads a copy of a text and overwrites the text.
struct Rewrite {
  const char *at; // ends with a NUL
  char *out;
};

// A copy of the text up to its end, with the NULs in control sequences.
std::string copy_of(const char *text) {
  return {text, text_end_of(text)};
}

// Between control sequences, only the end of the copy is a NUL.
bool at_end(const Rewrite *r) {
  return *r->at == '\0';
}

void copy_item(Rewrite *r) {
  for (size_t left = text_item_length(static_cast<uint8_t>(*r->at)); left > 0; left--)
    *r->out++ = *r->at++;
}

void write_wide(Rewrite *r, uint32_t code) {
  *r->out++ = static_cast<char>(text_wide_first);
  *r->out++ = static_cast<char>(code >> 8);
  *r->out++ = static_cast<char>(code & 255);
}

void write_command(Rewrite *r, uint8_t kind, uint32_t value) {
  *r->out++ = static_cast<char>(text_command_first);
  *r->out++ = static_cast<char>(kind);
  for (int shift = 0; shift < 32; shift += 8)
    *r->out++ = static_cast<char>(value >> shift & 255);
}

bool is_letter(char c) {
  const int lower = ascii_lower(c);
  return lower >= 'a' && lower <= 'z';
}

// The glyph whose name starts the text, and the length of the name; 0 if there is none. No name of
// a letter begins like one of a variant, so the order of the tests doesn't matter.
uint32_t greek_glyph(const char *text, size_t *length) {
  for (uint32_t i = 0; i < greek_count; i++) {
    if (!ascii_starts_with_nocase(text, greek_names[i])) continue;
    *length = std::strlen(greek_names[i]);
    return greek_first + i + (*text < 'a' ? greek_count : 0);
  }
  for (uint32_t i = variant_count; i-- > 0;) {
    if (!ascii_starts_with_nocase(text, variant_names[i])) continue;
    *length = std::strlen(variant_names[i]);
    return variant_first + i;
  }
  return 0;
}

void replace_names(char *text) {
  const std::string copy = copy_of(text);
  Rewrite r = {copy.c_str(), text};
  while (!at_end(&r)) {
    size_t length = 0;
    const uint32_t glyph = greek_glyph(r.at, &length);
    if (glyph == 0) {
      copy_item(&r);
      continue;
    }
    r.at += length;
    write_wide(&r, glyph);
  }
  *r.out = '\0';
}

// Units of 1/256; the rise is relative to the height of a line.
struct Script {
  int32_t size, rise;
};

constexpr Script plain_script = {256, 0};

// An open group in braces; the text itself is the outermost.
struct Group {
  Script script;
  int64_t braces; // open ones inside it that are text
};

Script script_in(Script outer, char marker) {
  const double z = outer.size;
  const double size = std::round(z * 1792.0 / (1792.0 + 3.0 * z));
  const double rise = (marker == '^' ? 0.3 * z : -0.3 * z) - (z - size) / 2;
  return {static_cast<int32_t>(size),
          std::clamp<int32_t>(outer.rise + static_cast<int32_t>(rise), INT16_MIN, INT16_MAX)};
}

void write_script(Rewrite *r, Script script) {
  const uint32_t rise = static_cast<uint32_t>(script.rise);
  write_command(r, text_kind_script, static_cast<uint32_t>(script.size) | rise << 16);
}

// Counts the braces that are text, to recognise the one that closes the group.
void copy_in_group(Rewrite *r, Group *group) {
  if (*r->at == '{') group->braces++;
  if (*r->at == '}') group->braces--;
  copy_item(r);
}

bool at_group_end(const Rewrite *r, const std::vector<Group> &groups) {
  return groups.size() > 1 && groups.back().braces == 0 && *r->at == '}';
}

bool same_run(char a, char b) {
  return (is_letter(a) && is_letter(b)) || (ascii_is_digit(a) && ascii_is_digit(b)) ||
         (a == text_wide_first && b == text_wide_first);
}

// Reads a marker and its operand; of a group only the opening brace.
void begin_script(Rewrite *r, std::vector<Group> *groups) {
  const Script outer = groups->back().script;
  const Script script = script_in(outer, *r->at++);
  write_script(r, script);
  if (*r->at == '{') {
    r->at++;
    groups->push_back({script, 0});
    return;
  }
  if (!at_end(r) && !at_group_end(r, *groups)) {
    const char first = *r->at;
    do
      copy_in_group(r, &groups->back());
    while (same_run(first, *r->at));
  }
  write_script(r, outer);
}

void end_group(Rewrite *r, std::vector<Group> *groups) {
  groups->pop_back();
  write_script(r, groups->back().script);
}

// Keeps the open groups on an explicit stack: a text can nest them deeper than the call stack
// allows.
void replace_scripts(char *text, uint32_t depth) {
  const std::string copy = copy_of(text);
  Rewrite r = {copy.c_str(), text};
  std::vector<Group> groups = {{plain_script, 0}};
  while (!at_end(&r)) {
    if (at_group_end(&r, groups)) {
      r.at++;
      end_group(&r, &groups);
    } else if ((*r.at == '^' || *r.at == '_') && groups.size() <= depth) {
      begin_script(&r, &groups);
    } else {
      copy_in_group(&r, &groups.back());
    }
  }
  while (groups.size() > 1)
    end_group(&r, &groups);
  *r.out = '\0';
}

const Tag *tag_at(const char *text) {
  for (const Tag &tag : tags)
    if (ascii_starts_with_nocase(text, tag.start)) return &tag;
  return nullptr;
}

void replace_tag(Rewrite *r, const Tag *tag) {
  int64_t number = 0;
  r->at += std::strlen(tag->start);
  for (; ascii_is_digit(*r->at); r->at++)
    number = std::min<int64_t>(number * 10 + (*r->at - '0'), INT32_MAX);
  if (*r->at == '#') r->at++;
  write_command(r, tag->kind, static_cast<uint32_t>(number));
}

} // namespace

void text_prepare(char *text, int32_t depth) {
  replace_names(text);
  if (depth > 0) replace_scripts(text, static_cast<uint32_t>(depth));
}

void text_prepare_tags(char *text) {
  const std::string copy = copy_of(text);
  Rewrite r = {copy.c_str(), text};
  while (!at_end(&r)) {
    const Tag *tag = tag_at(r.at);
    if (tag != nullptr)
      replace_tag(&r, tag);
    else
      copy_item(&r);
  }
  *r.out = '\0';
}
