#include "app/files.h"

#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "gfx/display_settings.h"
#include "gfx/window.h"
#include "support/file.h"
#include "support/report.h"
#include "world/session.h"

namespace {

constexpr const char *settings_path = "config.txt";
constexpr char settings_separator = ':';
constexpr const char *session_path = "maze_save.dat";
constexpr const char *damaged_stem = "maze_save.damaged"; // of one that was set aside
constexpr const char *beside_stem = "maze_save.beside";   // of one beside another's that stays
constexpr const char *session_ending = ".dat";

// Tells of a failure once in a run.
void save_settings(Run *run) {
  if (!run->keeps_settings || Settings_save(&run->settings, settings_path, settings_separator))
    return;
  if (run->settings_failed) return;
  run->settings_failed = true;
  report_sentence("the settings could not be written to \"%s\" (%s); what was there is unchanged",
                  settings_path, std::strerror(errno));
}

// Keeps a session that can't be used from being written over by the end of this run.
void keep_damaged(Run *run) {
  const std::string aside = file_free_name(damaged_stem, session_ending);
  run->keeps_session = file_rename(session_path, aside);
  if (run->keeps_session)
    report_sentence(
        "the session in \"%s\" is damaged; it has been renamed to \"%s\", and a new maze "
        "has been made",
        session_path, aside.c_str());
  else
    report_sentence("the session in \"%s\" is damaged and can't be renamed (%s); it is left alone, "
                    "and a new maze has been made",
                    session_path, std::strerror(errno));
}

void keep_unreadable(Run *run) {
  run->keeps_session = false;
  report_sentence(
      "the session in \"%s\" can't be read (%s); it is left alone, and a new maze has been "
      "made",
      session_path, std::strerror(errno));
}

} // namespace

void start_settings(Run *run) {
  run->settings_failed = false;
  run->keeps_settings = Settings_load(&run->settings, settings_path, settings_separator);
  if (!run->keeps_settings)
    report_sentence("the settings in \"%s\" can't be read (%s) and are left alone", settings_path,
                    std::strerror(errno));
  Settings_default(&run->settings, "Windowed (Y/N)", "Y");
  windowed = setting_is_true(Settings_get(&run->settings, "Windowed")) ? 1 : 0;
  Display_settings_apply(&run->settings, &run->stereo_mode, &run->stereo_swap);
  Settings_default(&run->settings, "Stereo Depth", "0.05");
  const double depth = std::strtod(Settings_get(&run->settings, "Stereo Depth"), nullptr);
  run->stereo_depth = std::isfinite(depth) ? depth : 0.0;
  save_settings(run);
}

void end_settings(Run *run) {
  char number[32];
  std::snprintf(number, sizeof number, "%d", run->stereo_mode);
  Settings_set(&run->settings, "Stereo mode", number);
  Settings_set(&run->settings, "Swap stereo (Y/N)", run->stereo_swap != 0 ? "Y" : "N");
  std::snprintf(number, sizeof number, "%.15lg", run->stereo_depth);
  Settings_set(&run->settings, "Stereo Depth", number);
  save_settings(run);
  Settings_free(&run->settings);
}

void start_session(Run *run) {
  run->keeps_session = true;
  const SessionLoad result = World_load(&run->world, session_path);
  if (result == SessionLoad::loaded) return;
  if (result == SessionLoad::damaged) keep_damaged(run);
  if (result == SessionLoad::unreadable) keep_unreadable(run);
  World_new(&run->world, 0);
}

void save_session(const Run *run) {
  const std::string path =
      run->keeps_session ? session_path : file_free_name(beside_stem, session_ending);
  if (!World_save(&run->world, path.c_str()))
    report_sentence("the session could not be saved to \"%s\" (%s); what was there is unchanged",
                    path.c_str(), std::strerror(errno));
  else if (!run->keeps_session)
    report_sentence("the session has been saved to \"%s\", since \"%s\" is left alone",
                    path.c_str(), session_path);
}
