#include "app/settings_file.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "gfx/display_settings.h"
#include "gfx/window.h"
#include "render/anaglyph.h"
#include "render/gl/age_colour.h"
#include "render/plot_switches.h"
#include "support/report.h"
#include "support/strings.h"
#include "world/roamer.h"

namespace {

constexpr const char *settings_path = "config.txt";
constexpr char settings_separator = ':';

// Reports a failure once per run.
void save_settings(Run *run) {
  if (!run->may_replace_settings ||
      Settings_save(&run->settings, settings_path, settings_separator))
    return;
  if (run->settings_failed) return;
  run->settings_failed = true;
  report_sentence("the settings could not be written to \"%s\" (%s); no file has been changed",
                  settings_path, std::strerror(errno));
}

// 0 if there is no such setting, or no number in it.
uint32_t roamer_count(const char *value) {
  if (value == nullptr) return 0;
  return static_cast<uint32_t>(std::clamp(std::strtol(value, nullptr, 10), 0L, long{max_roamers}));
}

bool has_value(const Settings &settings, const char *key, const char *value) {
  const char *found = Settings_get(&settings, key);
  return found != nullptr && ascii_equal_nocase(found, value);
}

} // namespace

void settings_start(Run *run) {
  run->settings_failed = false;
  run->may_replace_settings = Settings_load(&run->settings, settings_path, settings_separator);
  if (!run->may_replace_settings)
    report_sentence("the settings in \"%s\" can't be read (%s) and are left alone", settings_path,
                    std::strerror(errno));
  Settings_default(&run->settings, "Windowed (Y/N)", "Y");
  windowed = setting_is_true(Settings_get(&run->settings, "Windowed")) ? 1 : 0;
  Display_settings_apply(&run->settings, &run->stereo_mode, &run->stereo_swap);
  Settings_default(&run->settings, "Stereo Depth", "0.05");
  const double depth = std::strtod(Settings_get(&run->settings, "Stereo Depth"), nullptr);
  run->stereo_depth = std::isfinite(depth) ? depth : 0.0;
  run->roamers = roamer_count(Settings_get(&run->settings, "Roamers"));
  plot_roamers = run->roamers > 0;
  age_colour_light = has_value(run->settings, "Trail", "light");
  anaglyph_dubois = has_value(run->settings, "Anaglyph", "dubois");
  save_settings(run);
}

void settings_end(Run *run) {
  char number[32];
  std::snprintf(number, sizeof number, "%d", run->stereo_mode);
  Settings_set(&run->settings, "Stereo mode", number);
  Settings_set(&run->settings, "Swap stereo (Y/N)", run->stereo_swap != 0 ? "Y" : "N");
  std::snprintf(number, sizeof number, "%.15lg", run->stereo_depth);
  Settings_set(&run->settings, "Stereo Depth", number);
  save_settings(run);
  Settings_free(&run->settings);
}
