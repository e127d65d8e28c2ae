#include "maker/options.h"

#include <cmath>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iterator>

#include <getopt.h>

#include "generate/new_tree.h"
#include "maker/plot_names.h"

namespace {

using Take = bool (*)(const char *name, const char *value, Options *options);

// One sentence on the standard error; printf's format.
[[gnu::format(printf, 1, 2)]] bool wrong(const char *format, ...) {
  std::va_list values;
  va_start(values, format);
  std::fputs("vorel-maze: ", stderr);
  std::vfprintf(stderr, format, values);
  std::fputs("; --help lists the options\n", stderr);
  va_end(values);
  return false;
}

// The whole text as a number; false if it is none or out of range.
bool read_number(const char *text, double low, double high, double *value) {
  char *end = nullptr;
  *value = std::strtod(text, &end);
  return end != text && *end == '\0' && *value >= low && *value <= high;
}

template <auto field, uint32_t low, uint32_t high>
bool take_integer(const char *name, const char *value, Options *options) {
  double number = 0;
  if (!read_number(value, low, high, &number) || number != std::floor(number))
    return wrong("--%s takes a whole number from %u to %u, not \"%s\"", name, low, high, value);
  options->*field = static_cast<std::remove_reference_t<decltype(options->*field)>>(number);
  return true;
}

template <auto field> bool take_text(const char *name, const char *value, Options *options) {
  options->*field = value;
  return *value != '\0' || wrong("--%s takes a name, not an empty one", name);
}

template <auto field> bool take_flag(const char *, const char *, Options *options) {
  return options->*field = true;
}

bool take_kind(const char *, const char *value, Options *options) {
  options->kind = value;
  return MazeKind_find(value) != nullptr || wrong("there is no kind \"%s\"", value);
}

bool take_seed(const char *name, const char *value, Options *options) {
  options->seeded = true;
  return take_integer<&Options::seed, 0, UINT32_MAX>(name, value, options);
}

bool take_size(const char *, const char *value, Options *options) {
  int end = 0;
  const int read = std::sscanf(value, "%5dx%5d%n", &options->width, &options->height, &end);
  const auto fits = [](int32_t side) { return side >= 1 && side <= picture_max_side; };
  return (read == 2 && value[end] == '\0' && fits(options->width) && fits(options->height)) ||
         wrong("--size takes a width and a height from 1 to %d, such as 1280x960, not \"%s\"",
               picture_max_side, value);
}

bool take_plot(const char *, const char *value, Options *options) {
  options->plot = value;
  return plot_find(value) != nullptr || wrong("there is no plot \"%s\"", value);
}

bool take_zoom(const char *, const char *value, Options *options) {
  return read_number(value, 1e-6, 1e9, &options->zoom) ||
         wrong("--zoom takes a distance above 0, not \"%s\"", value);
}

bool take_turn(const char *, const char *value, Options *options) {
  const char *comma = std::strchr(value, ',');
  const std::string yaw(value, comma == nullptr ? value : comma);
  options->turned = true;
  return (comma != nullptr && read_number(yaw.c_str(), -1e6, 1e6, &options->yaw) &&
          read_number(comma + 1, -1e6, 1e6, &options->pitch)) ||
         wrong("--turn takes two angles in radians, such as 0.4,-0.8, not \"%s\"", value);
}

struct OptionRow {
  const char *name, *argument; // null if it takes none
  Take take;
  const char *help;
};

constexpr OptionRow option_rows[] = {
    {"kind", "NAME", take_kind,
     "plane, grid, hexagon, honeycomb, polar, sphere, box, torus, band,\n"
     "patchwork, nested, nested-twice or ladder; any of them by default"},
    {"side", "N", take_integer<&Options::side, 1, 100000>, "size of the kind"},
    {"seed", "N", take_seed, "0 to 4294967295; the same seed gives the same maze everywhere"},
    {"load", "FILE", take_text<&Options::load>, "take this session instead of a new maze"},
    {"walk", "N", take_integer<&Options::walk, 0, INT32_MAX>,
     "take N random steps, which leave a trail"},
    {"save", "FILE", take_text<&Options::save>,
     "write a session, which Vorel resumes as maze_save.dat in its folder"},
    {"force", nullptr, take_flag<&Options::force>, "replace existing files"},
    {"statistics", nullptr, take_flag<&Options::statistics>,
     "print nodes, mazes, levels, dead ends and the longest path"},
    {"picture", "FILE.png", take_text<&Options::picture>, "draw the maze"},
    {"size", "WxH", take_size, "of the picture in pixels, up to 16384x16384; 1280x960 by default"},
    {"plot", "NAME", take_plot, "lines, gantry, balls, landscape-0 to landscape-5, or fixed"},
    {"stereo", "MODE", take_integer<&Options::stereo, 0, 8>, "0 to 8, as in config.txt"},
    {"zoom", "Z", take_zoom, "distance of the eye, world units"},
    {"turn", "YAW,PITCH", take_turn, "direction of the view, radians"},
    {"whole", nullptr, take_flag<&Options::whole>, "frame the whole maze"},
    {"grid", nullptr, take_flag<&Options::grid>, "draw the grid"},
    {"reach", nullptr, take_flag<&Options::reach>, "draw the reachable area in blue"},
    {"lights", nullptr, take_flag<&Options::lights>, "carry a lamp"},
    {"turntable", "N", take_integer<&Options::turntable, 1, 100000>,
     "draw N numbered pictures of one turn"},
    {"help", nullptr, nullptr, "print this text"},
    {"version", nullptr, nullptr, "print name, version and licence"},
};

void print_help() {
  std::puts("Usage: vorel-maze [OPTION]...\n"
            "Makes a maze and saves it, draws it or counts it.\n");
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

// What only fits together with something else.
bool check(const Options &options) {
  if (!options.load.empty() && (!options.kind.empty() || options.side > 0))
    return wrong("--load takes a session, whose kind and side are given");
  if (options.side > 0 && options.kind.empty()) return wrong("--side needs a --kind");
  if (options.side > 0 && MazeKind_find(options.kind.c_str())->size == 0)
    return wrong("a %s has no side to choose", options.kind.c_str());
  if (options.turntable > 0 && options.picture.empty()) return wrong("--turntable needs --picture");
  if (options.save.empty() && options.picture.empty() && !options.statistics)
    return wrong("nothing to do without --save, --picture or --statistics");
  return true;
}

} // namespace

OptionsResult Options_read(Options *options, int argc, char **argv) {
  option list[std::size(option_rows) + 1] = {};
  fill_options(list);
  opterr = 0;
  for (int i; (i = getopt_long(argc, argv, ":", list, nullptr)) != -1;) {
    if (i == ':') return wrong("%s needs a value", argv[optind - 1]), OptionsResult::wrong;
    if (i == '?') return wrong("there is no option %s", argv[optind - 1]), OptionsResult::wrong;
    const OptionRow &row = option_rows[i];
    if (row.take != nullptr && !row.take(row.name, optarg, options)) return OptionsResult::wrong;
    if (row.take != nullptr) continue;
    if (std::strcmp(row.name, "help") == 0)
      print_help();
    else
      std::puts("vorel-maze " VOREL_VERSION ", MIT licence");
    return OptionsResult::done;
  }
  if (optind < argc) return wrong("\"%s\" is no option", argv[optind]), OptionsResult::wrong;
  return check(*options) ? OptionsResult::run : OptionsResult::wrong;
}
