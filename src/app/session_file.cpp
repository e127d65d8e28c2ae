#include "app/session_file.h"

#include <cerrno>
#include <cstring>

#include "app/session_names.h"
#include "support/clock.h"
#include "support/file.h"
#include "support/report.h"
#include "world/session.h"

namespace {

// Renames a damaged session, so that this run does not replace it.
void keep_damaged(Run *run, const char *instead) {
  const std::string new_name = file_rename_unused(session_path, damaged_stem, session_ending);
  run->may_replace_session = !new_name.empty();
  if (!new_name.empty())
    report_sentence("the session in \"%s\" is damaged; it has been renamed to \"%s\", and %s",
                    session_path, new_name.c_str(), instead);
  else
    report_sentence("the session in \"%s\" is damaged and can't be renamed (%s); it is left alone, "
                    "and %s",
                    session_path, std::strerror(errno), instead);
}

void keep_unreadable(Run *run, const char *instead) {
  run->may_replace_session = false;
  report_sentence("the session in \"%s\" can't be read (%s); it is left alone, and %s",
                  session_path, std::strerror(errno), instead);
}

// Why the session's file must not be replaced; null if it may.
const char *reason_to_keep(const Run *run) {
  if (!run->may_replace_session) return "it is left alone";
  const FileIdentity now = file_identity(session_path);
  if (now.exists && now != run->session) return "another program has written it";
  return nullptr;
}

bool save_in(const Run *run, const std::string &folder, std::string *path) {
  *path = file_unused_name(folder + beside_stem, session_ending);
  return World_save(&run->world, path->c_str());
}

// Saves under another name, in the first folder where that succeeds.
SessionPlace save_elsewhere(const Run *run, std::string *path) {
  if (save_in(run, "", path)) return SessionPlace::this_folder;
  const std::string data = file_data_folder(), temporary = file_temporary_folder();
  if (!data.empty() && save_in(run, data + "/", path)) return SessionPlace::data_folder;
  if (!temporary.empty() && save_in(run, temporary + "/", path))
    return SessionPlace::temporary_folder;
  return SessionPlace::nowhere;
}

// Saves elsewhere after a failure at `path`, whose cause is in errno.
SessionPlace save_after_failure(const Run *run, const char *path) {
  const std::string failure = std::strerror(errno);
  std::string other;
  const SessionPlace place = save_elsewhere(run, &other);
  if (place == SessionPlace::nowhere)
    report_sentence("the session could not be saved to \"%s\" (%s) or anywhere else; no "
                    "file has been changed",
                    path, failure.c_str());
  else
    report_sentence("the session could not be saved to \"%s\" (%s); it has been saved to \"%s\"",
                    path, failure.c_str(), other.c_str());
  return place;
}

SessionPlace save_beside(const Run *run, const char *reason) {
  std::string path;
  const SessionPlace place = save_elsewhere(run, &path);
  if (place == SessionPlace::nowhere)
    report_sentence("the session could not be saved anywhere (%s); no file has been changed",
                    std::strerror(errno));
  else
    report_sentence("the session has been saved to \"%s\", not to \"%s\", since %s", path.c_str(),
                    session_path, reason);
  return place;
}

constexpr int32_t lock_tries = 100;
constexpr int32_t lock_wait = 50; // milliseconds between two of them

// Keeps other runs in this folder from saving between a look at the files and their replacement.
// Waits some seconds for them; null if that is not enough, or if folders can't be locked here.
FileLock *lock_folder() {
  FileLock *lock = nullptr;
  for (int32_t tries = 0; tries < lock_tries && lock == nullptr; tries++) {
    if (tries > 0) clock_sleep(lock_wait);
    lock = file_lock(".");
    if (lock == nullptr && errno != EWOULDBLOCK) break;
  }
  return lock;
}

} // namespace

void session_start(Run *run) {
  file_remove_leftovers(session_prefix);
  run->may_replace_session = true;
  run->session = file_identity(session_path);
  const SessionLoad result = World_load(&run->world, session_path);
  const int cause = errno;
  const bool loaded = result == SessionLoad::loaded;
  World recovered;
  const bool resumed =
      Recovery_resume(&run->recovery, &recovered, loaded ? run->session : FileIdentity{});
  const char *instead = resumed ? "the recovery file is used instead" : "a new maze has been made";
  errno = cause;
  if (result == SessionLoad::damaged) keep_damaged(run, instead);
  if (result == SessionLoad::unreadable) keep_unreadable(run, instead);
  if (loaded && resumed) World_free(&run->world);
  if (resumed) run->world = recovered;
  if (!loaded && !resumed) World_new(&run->world, 0);
  Recovery_start(&run->recovery, &run->world);
}

SessionPlace session_save(const Run *run) {
  FileLock *lock = lock_folder();
  const char *reason = reason_to_keep(run);
  SessionPlace place = SessionPlace::this_folder;
  if (reason != nullptr)
    place = save_beside(run, reason);
  else if (!World_save(&run->world, session_path))
    place = save_after_failure(run, session_path);
  file_unlock(lock);
  return place;
}

void session_save_again(const Run *run) {
  FileLock *lock = lock_folder();
  if (reason_to_keep(run) == nullptr && World_save(&run->world, session_path))
    report_sentence("the session has been saved to \"%s\" after all", session_path);
  file_unlock(lock);
}

void session_save_for_recovery(Run *run) {
  if (run->world.root == nullptr) return; // between two mazes
  if (!Recovery_write(&run->recovery, &run->world)) save_after_failure(run, recovery_path);
}
