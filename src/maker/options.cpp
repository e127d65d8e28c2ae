#include "maker/options.h"

#include <algorithm>
#include <charconv>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <iterator>
#include <string_view>
#include <system_error>

#include <getopt.h>

#include "generate/new_tree.h"
#include "maker/plot_names.h"
#include "support/file.h"
#include "support/sentence.h"

namespace {

using Parse = bool (*)(const char *name, const char *value, Options *options);

// One sentence on the standard error; printf's format.
[[gnu::format(printf, 1, 2)]] bool usage_error(const char *format, ...) {
  std::va_list values;
  va_start(values, format);
  const std::string text = sentence_text(format, values);
  va_end(values);
  report_sentence("%s; --help lists the options", text.c_str());
  return false;
}

// Whether a conversion took the whole text and gave a number of that range.
template <typename Number>
bool is_whole(std::from_chars_result result, std::string_view text, Number value, Number low,
              Number high) {
  return result.ec == std::errc() && result.ptr == text.data() + text.size() && value >= low &&
         value <= high;
}

// The whole text as a number in decimal digits; false if it is none or out of range.
bool read_integer(std::string_view text, int64_t low, int64_t high, int64_t *value) {
  const auto result = std::from_chars(text.data(), text.data() + text.size(), *value);
  return is_whole(result, text, *value, low, high);
}

// The same with a point, but without an exponent.
bool read_real(std::string_view text, double low, double high, double *value) {
  const auto result =
      std::from_chars(text.data(), text.data() + text.size(), *value, std::chars_format::fixed);
  return is_whole(result, text, *value, low, high);
}

// Splits a text at a separator; false if it is not there.
bool split(std::string_view text, char separator, std::string_view *first,
           std::string_view *second) {
  const size_t at = text.find(separator);
  if (at == text.npos) return false;
  *first = text.substr(0, at);
  *second = text.substr(at + 1);
  return true;
}

template <auto field, uint32_t low, uint32_t high>
bool parse_integer(const char *name, const char *value, Options *options) {
  int64_t number = 0;
  if (!read_integer(value, low, high, &number))
    return usage_error("--%s takes a whole number from %u to %u, not \"%s\"", name, low, high,
                       value);
  options->*field = static_cast<std::remove_reference_t<decltype(options->*field)>>(number);
  return true;
}

template <auto field> bool parse_text(const char *name, const char *value, Options *options) {
  options->*field = value;
  return *value != '\0' || usage_error("--%s takes a name, not an empty one", name);
}

template <auto field> bool parse_flag(const char *, const char *, Options *options) {
  return options->*field = true;
}

bool parse_kind(const char *, const char *value, Options *options) {
  options->kind = value;
  return MazeKind_find(value) != nullptr || usage_error("there is no kind \"%s\"", value);
}

bool parse_seed(const char *name, const char *value, Options *options) {
  options->seeded = true;
  return parse_integer<&Options::seed, 0, UINT32_MAX>(name, value, options);
}

bool parse_size(const char *, const char *value, Options *options) {
  std::string_view width, height;
  int64_t sides[2] = {};
  const bool good = split(value, 'x', &width, &height) &&
                    read_integer(width, 1, picture_max_side, &sides[0]) &&
                    read_integer(height, 1, picture_max_side, &sides[1]);
  options->width = static_cast<int32_t>(sides[0]);
  options->height = static_cast<int32_t>(sides[1]);
  return good ||
         usage_error("--size takes a width and a height from 1 to %d, such as 1280x960, not \"%s\"",
                     picture_max_side, value);
}

bool parse_plot(const char *, const char *value, Options *options) {
  options->plot = value;
  return plot_find(value) != nullptr || usage_error("there is no plot \"%s\"", value);
}

bool parse_zoom(const char *, const char *value, Options *options) {
  return read_real(value, 1e-6, 1e9, &options->zoom) ||
         usage_error("--zoom takes a distance above 0, such as 12.5, not \"%s\"", value);
}

bool parse_turn(const char *, const char *value, Options *options) {
  std::string_view yaw, pitch;
  options->turned = true;
  return (split(value, ',', &yaw, &pitch) && read_real(yaw, -1e6, 1e6, &options->yaw) &&
          read_real(pitch, -1e6, 1e6, &options->pitch)) ||
         usage_error("--turn takes two angles in radians, such as 0.4,-0.8, not \"%s\"", value);
}

struct OptionRow {
  const char *name, *argument; // null if it takes none
  Parse parse;
  const char *help;
};

constexpr OptionRow option_rows[] = {
    {"kind", "NAME", parse_kind,
     "plane, grid, hexagon, honeycomb, polar, sphere, box, torus, band,\n"
     "patchwork, nested, nested-twice or ladder; by default any but box, patchwork and ladder"},
    {"side", "N", parse_integer<&Options::side, 1, 100000>,
     "size of the kind, such as the radius of a sphere; needs --kind;\nby default that of a new "
     "maze in Vorel"},
    {"seed", "N", parse_seed, "0 to 4294967295; the same seed gives the same maze everywhere"},
    {"load", "FILE", parse_text<&Options::load>, "load this session instead of making a maze"},
    {"walk", "N", parse_integer<&Options::walk, 0, INT32_MAX>,
     "take N random steps, which leave a trail"},
    {"save", "FILE", parse_text<&Options::save>,
     "write a session, which Vorel resumes as maze_save.dat in its folder"},
    {"force", nullptr, parse_flag<&Options::force>, "replace existing files"},
    {"statistics", nullptr, parse_flag<&Options::statistics>,
     "print nodes, mazes, levels, dead ends and the longest path"},
    {"picture", "FILE.png", parse_text<&Options::picture>, "draw the maze"},
    {"size", "WxH", parse_size, "of the picture in pixels, up to 16384x16384; 1280x960 by default"},
    {"plot", "NAME", parse_plot, "lines, gantry, balls, landscape-0 to landscape-5, or fixed"},
    {"stereo", "MODE", parse_integer<&Options::stereo, 0, 8>, "0 to 8, as in config.txt"},
    {"zoom", "Z", parse_zoom, "distance of the eye from your place, world units"},
    {"turn", "YAW,PITCH", parse_turn,
     "direction of the view, radians; a pitch of 0 looks straight down"},
    {"whole", nullptr, parse_flag<&Options::whole>,
     "frame all that is drawn; not together with --zoom"},
    {"grid", nullptr, parse_flag<&Options::grid>, "draw the grid"},
    {"reach", nullptr, parse_flag<&Options::reach>, "draw the reachable area in blue"},
    {"lights", nullptr, parse_flag<&Options::lights>, "carry a light, in gantry and balls"},
    {"turntable", "N", parse_integer<&Options::turntable, 1, 100000>,
     "draw N pictures of one turn: FILE-0.png and so on; needs --picture"},
    {"help", nullptr, nullptr, "print this text"},
    {"version", nullptr, nullptr, "print name, version and licence"},
};

static_assert(std::size(option_rows) <= ' ', "unknown_option tells row numbers from letters");

void print_help() {
  std::puts("Usage: vorel-maze [OPTION]...\n"
            "Makes a maze, and saves it, draws it or prints its statistics.\n");
  for (const OptionRow &row : option_rows) {
    const std::string option = std::string(row.name) + (row.argument == nullptr ? "" : " ") +
                               (row.argument == nullptr ? "" : row.argument);
    std::string help = row.help;
    for (size_t at = 0; (at = help.find('\n', at)) != std::string::npos; at++)
      help.insert(at + 1, 24, ' ');
    std::printf("  --%-18s  %s\n", option.c_str(), help.c_str());
  }
}

void fill_options(option *list) {
  for (int i = 0; i < static_cast<int>(std::size(option_rows)); i++)
    list[i] = {option_rows[i].name,
               option_rows[i].argument == nullptr ? no_argument : required_argument, nullptr, i};
}

// After getopt_long has set optopt: a letter, the value of an option that takes no argument, or 0.
bool unknown_option(const char *text) {
  if (optopt >= ' ') return usage_error("there is no option -%c", optopt);
  if (optopt > 0) return usage_error("--%s takes no value", option_rows[optopt].name);
  return usage_error("%s is no option, or may mean several", text);
}

bool check_side(const Options &options) {
  if (options.side == 0) return true;
  if (options.kind.empty()) return usage_error("--side needs a --kind");
  const MazeKind &kind = *MazeKind_find(options.kind.c_str());
  if (kind.size == 0) return usage_error("the kind %s has no side to choose", kind.name);
  return options.side >= kind.min_size ||
         usage_error("the kind %s needs a side of at least %d", kind.name, kind.min_size);
}

// Links are followed. The files need not exist. Empty if the folder can't be read.
std::filesystem::path place_of(const std::string &name) {
  std::error_code ignored;
  const std::filesystem::path path = std::filesystem::absolute(file_path(name), ignored);
  return std::filesystem::weakly_canonical(path, ignored);
}

bool is_same_place(const std::string &a, const std::string &b) {
  if (a.empty() || b.empty()) return false;
  const std::filesystem::path place = place_of(a);
  return !place.empty() && place == place_of(b);
}

// Checks combinations of options.
bool check(const Options &options) {
  if (!options.load.empty() && (!options.kind.empty() || options.side > 0))
    return usage_error("--load can't be combined with --kind or --side");
  if (!check_side(options)) return false;
  if (options.stereo > 0 && std::min(options.width, options.height) < 2)
    return usage_error("--stereo needs a picture of at least 2x2 pixels");
  if (options.whole && options.zoom > 0)
    return usage_error("--whole chooses the distance and can't be combined with --zoom");
  if (options.turntable > 0 && options.picture.empty())
    return usage_error("--turntable needs --picture");
  if (options.save.empty() && options.picture.empty() && !options.statistics)
    return usage_error("nothing to do without --save, --picture or --statistics");
  if (is_same_place(options.save, options.picture))
    return usage_error("--save and --picture need two files");
  return true;
}

} // namespace

OptionsResult Options_read(Options *options, int argc, char **argv) {
  option list[std::size(option_rows) + 1] = {};
  fill_options(list);
  opterr = 0;
  for (int i; (i = getopt_long(argc, argv, ":", list, nullptr)) != -1;) {
    if (i == ':') return usage_error("%s needs a value", argv[optind - 1]), OptionsResult::invalid;
    if (i == '?') return unknown_option(argv[optind - 1]), OptionsResult::invalid;
    const OptionRow &row = option_rows[i];
    if (row.parse != nullptr && !row.parse(row.name, optarg, options))
      return OptionsResult::invalid;
    if (row.parse != nullptr) continue;
    if (std::strcmp(row.name, "help") == 0)
      print_help();
    else
      std::puts("vorel-maze " VOREL_VERSION ", MIT licence");
    return OptionsResult::done;
  }
  if (optind < argc)
    return usage_error("\"%s\" is no option", argv[optind]), OptionsResult::invalid;
  return check(*options) ? OptionsResult::run : OptionsResult::invalid;
}
