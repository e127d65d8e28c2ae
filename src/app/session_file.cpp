#include "app/session_file.h"

#include <cerrno>
#include <cstring>

#include "app/session_names.h"
#include "support/file.h"
#include "support/report.h"
#include "world/session.h"

namespace {

// Keeps a session that can't be used from being written over by the end of this run. `instead`
// tells what the run starts with.
void keep_damaged(Run *run, const char *instead) {
  const std::string aside = set_aside(session_path, damaged_stem);
  run->keeps_session = !aside.empty();
  if (run->keeps_session)
    report_sentence("the session in \"%s\" is damaged; it has been renamed to \"%s\", and %s",
                    session_path, aside.c_str(), instead);
  else
    report_sentence("the session in \"%s\" is damaged and can't be renamed (%s); it is left alone, "
                    "and %s",
                    session_path, std::strerror(errno), instead);
}

void keep_unreadable(Run *run, const char *instead) {
  run->keeps_session = false;
  report_sentence("the session in \"%s\" can't be read (%s); it is left alone, and %s",
                  session_path, std::strerror(errno), instead);
}

// Why the session must not go to its usual place; null if it may.
const char *reason_for_another_place(const Run *run) {
  if (!run->keeps_session) return "it is left alone";
  const FileIdentity now = file_identity(session_path);
  if (now.exists && now != run->session) return "another program has written it";
  return nullptr;
}

bool save_in(const Run *run, const std::string &folder, std::string *path) {
  *path = file_free_name(folder + beside_stem, session_ending);
  return World_save(&run->world, path->c_str());
}

// Saves under another name, in the first folder where that works.
bool save_elsewhere(const Run *run, std::string *path) {
  if (save_in(run, "", path)) return true;
  for (const std::string &folder : {file_data_folder(), file_temporary_folder()})
    if (!folder.empty() && save_in(run, folder + "/", path)) return true;
  return false;
}

} // namespace

void start_session(Run *run) {
  run->keeps_session = true;
  run->session = file_identity(session_path);
  World recovered;
  const bool resumed = Recovery_resume(&run->recovery, &recovered, run->session);
  const char *instead = resumed ? "the recovery file is used instead" : "a new maze has been made";
  const SessionLoad result = World_load(&run->world, session_path);
  if (result == SessionLoad::damaged) keep_damaged(run, instead);
  if (result == SessionLoad::unreadable) keep_unreadable(run, instead);
  if (result == SessionLoad::loaded && resumed) World_free(&run->world);
  if (resumed) run->world = recovered;
  if (result != SessionLoad::loaded && !resumed) World_new(&run->world, 0);
  Recovery_start(&run->recovery, &run->world);
}

bool save_session(const Run *run) {
  const char *reason = reason_for_another_place(run);
  if (reason == nullptr && World_save(&run->world, session_path)) return true;
  const std::string failure = reason == nullptr ? std::strerror(errno) : "";
  std::string path;
  const bool saved = save_elsewhere(run, &path);
  if (!saved)
    report_sentence("the session could not be saved to \"%s\" (%s) or anywhere else; what was "
                    "there is unchanged",
                    session_path, reason == nullptr ? failure.c_str() : std::strerror(errno));
  else if (reason == nullptr)
    report_sentence("the session could not be saved to \"%s\" (%s); it has been saved to \"%s\"",
                    session_path, failure.c_str(), path.c_str());
  else
    report_sentence("the session has been saved to \"%s\", not to \"%s\", since %s", path.c_str(),
                    session_path, reason);
  return saved;
}
