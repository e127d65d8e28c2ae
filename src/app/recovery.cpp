#include "app/recovery.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "app/session_names.h"
#include "support/bytes.h"
#include "support/clock.h"
#include "support/report.h"
#include "world/session.h"

namespace {

constexpr double write_time = 0.005; // seconds per frame

// A recovery file that no run has locked.
struct Orphan {
  std::string path;
  FileLock *lock;
  FileIdentity identity;
};

// Locks a file and adds it to the list. Removes an empty one, left by a run without a write.
void add_orphan(std::vector<Orphan> *orphans, const std::string &path) {
  FileLock *lock = file_lock(path);
  const FileIdentity identity = file_identity(path);
  if (lock != nullptr && identity.size > 0) {
    orphans->push_back({path, lock, identity});
    return;
  }
  const bool removed = lock == nullptr || file_remove(path);
  file_unlock(lock);
  if (!removed) file_remove(path); // some systems can't remove a locked file
  if (lock != nullptr || errno == EWOULDBLOCK || errno == ENOENT) return;
  report_sentence("the recovery file \"%s\" can't be opened (%s); it is left alone", path.c_str(),
                  std::strerror(errno));
}

// Newest first.
std::vector<Orphan> lock_orphans() {
  std::vector<std::string> names = file_numbered_names(recovery_stem, session_ending);
  names.push_back(recovery_path);
  std::vector<Orphan> orphans;
  for (const std::string &name : names)
    add_orphan(&orphans, name);
  std::sort(orphans.begin(), orphans.end(),
            [](const Orphan &a, const Orphan &b) { return a.identity.time > b.identity.time; });
  return orphans;
}

void rename_orphan(const Orphan &orphan, const char *stem, const char *reason) {
  std::string new_name = file_rename_unused(orphan.path, stem, session_ending);
  file_unlock(orphan.lock);
  if (new_name.empty()) // some systems can't rename a locked file
    new_name = file_rename_unused(orphan.path, stem, session_ending);
  if (new_name.empty())
    report_sentence("the recovery file \"%s\" %s and can't be renamed (%s); it is left alone",
                    orphan.path.c_str(), reason, std::strerror(errno));
  else
    report_sentence("the recovery file \"%s\" %s; it has been renamed to \"%s\"",
                    orphan.path.c_str(), reason, new_name.c_str());
}

void adopt(Recovery *recovery, const Orphan &orphan) {
  recovery->path = orphan.path;
  recovery->lock = orphan.lock;
  recovery->identity = orphan.identity;
  report_sentence("the last run ended without saving; its session has been resumed from \"%s\"",
                  orphan.path.c_str());
}

// Loads the file. False if it can't be used; it is then renamed or left alone.
bool resume_orphan(Recovery *recovery, World *world, const Orphan &orphan) {
  switch (World_load(world, orphan.path.c_str())) {
  case SessionLoad::loaded:
    adopt(recovery, orphan);
    return true;
  case SessionLoad::damaged:
    rename_orphan(orphan, damaged_stem, "is damaged");
    return false;
  default:
    report_sentence("the recovery file \"%s\" can't be read (%s); it is left alone",
                    orphan.path.c_str(), std::strerror(errno));
    file_unlock(orphan.lock);
    return false;
  }
}

// Whether the file is as this run wrote it, not replaced or removed.
bool is_ours(const Recovery *recovery) {
  return recovery->identity.exists && file_identity(recovery->path) == recovery->identity;
}

void unlock(Recovery *recovery) {
  file_unlock(recovery->lock);
  recovery->lock = nullptr;
}

void forget_file(Recovery *recovery) {
  unlock(recovery);
  recovery->identity = {};
}

// Creates an empty file under the first unused name. False, with errno, on failure.
bool create_file(Recovery *recovery) {
  recovery->path = recovery_path;
  FILE *file = file_create_new(recovery->path, false);
  while (file == nullptr && errno == EEXIST) {
    recovery->path = file_unused_name(recovery_stem, session_ending);
    file = file_create_new(recovery->path, false);
  }
  if (file == nullptr || std::fclose(file) != 0) return false;
  recovery->lock = file_lock(recovery->path);
  recovery->identity = file_identity(recovery->path);
  return true;
}

// Opens a temporary file that will replace the recovery file. False, with errno, on failure.
bool open_replacement(Recovery *recovery, FileFlush flush) {
  if (!is_ours(recovery)) {
    forget_file(recovery);
    if (!create_file(recovery)) return false;
  }
  return file_replace_begin(&recovery->file, recovery->path.c_str(), false, flush);
}

// Replaces the recovery file. Locks the new file before it gets the name, if the system can lock an
// open file and replace a locked one. False, with errno, on failure.
bool close_replacement(Recovery *recovery, bool complete) {
  const int cause = errno; // of an incomplete write
  const bool ours = is_ours(recovery);
  FileLock *next = file_lock(recovery->file.temporary);
  if (next == nullptr) unlock(recovery);
  errno = complete ? EBUSY : cause;
  const bool done = file_replace_end(&recovery->file, complete && ours);
  const int fault = errno;
  if (done && next != nullptr) {
    unlock(recovery);
    recovery->lock = next;
  } else {
    file_unlock(next);
  }
  if (recovery->lock == nullptr) recovery->lock = file_lock(recovery->path);
  if (done) recovery->identity = file_identity(recovery->path);
  if (recovery->lock == nullptr) forget_file(recovery); // the next write takes another name
  errno = fault;
  return done;
}

void free_blocks(Recovery *recovery) {
  if (recovery->blocks.data == nullptr) return;
  for (uint32_t i = 0; i < recovery->blocks.count; i++)
    std::free(rows<ByteBlock>(recovery->blocks)[i].bytes);
  GrowList_free(&recovery->blocks);
}

void report_failure(Recovery *recovery) {
  if (recovery->failure_reported) return;
  recovery->failure_reported = true;
  report_sentence("the recovery file \"%s\" could not be written (%s); quit to save the session",
                  recovery->path.c_str(), std::strerror(errno));
}

void begin_write(Recovery *recovery, const World *world) {
  Recovery_abandon(recovery);
  recovery->changed_again = false;
  recovery->last_write = gfx_clock();
  recovery->next_block = 0;
  GrowList_init(&recovery->blocks, sizeof(ByteBlock));
  World_serialise(world, &recovery->blocks);
  if (open_replacement(recovery, FileFlush::later)) return;
  report_failure(recovery);
  free_blocks(recovery);
}

void end_write(Recovery *recovery, bool complete) {
  const bool done = close_replacement(recovery, complete);
  if (!done) report_failure(recovery);
  recovery->changed = recovery->changed_again || !done;
  free_blocks(recovery);
}

// False, with errno, on failure.
bool write_next_block(Recovery *recovery) {
  ByteBlock &block = rows<ByteBlock>(recovery->blocks)[recovery->next_block++];
  const bool done = std::fwrite(block.bytes, 1, block.size, recovery->file.stream) == block.size;
  std::free(block.bytes);
  block.bytes = nullptr;
  return done;
}

void write_part(Recovery *recovery) {
  const double end = gfx_clock() + write_time;
  do {
    if (!write_next_block(recovery)) {
      end_write(recovery, false);
      return;
    }
  } while (recovery->next_block < recovery->blocks.count && gfx_clock() < end);
  file_sync_begin(recovery->file.stream);
  if (recovery->next_block == recovery->blocks.count) end_write(recovery, true);
}

void note_changes(Recovery *recovery, const World *world, bool moved) {
  const bool changed = moved || recovery->root != world->root->serial ||
                       !Pos_equal(recovery->cur, world->cur) || recovery->zoom != world->zoom;
  recovery->changed |= changed;
  recovery->changed_again |= changed;
  recovery->root = world->root->serial;
  recovery->cur = world->cur;
  recovery->zoom = world->zoom;
}

} // namespace

bool Recovery_resume(Recovery *recovery, World *world, const FileIdentity &session) {
  *recovery = {};
  bool resumed = false;
  for (const Orphan &orphan : lock_orphans()) {
    const bool recent = !session.exists || orphan.identity.time >= session.time;
    if (resumed || !recent)
      rename_orphan(orphan, beside_stem, "is older than the session that is resumed");
    else
      resumed = resume_orphan(recovery, world, orphan);
  }
  return resumed;
}

void Recovery_start(Recovery *recovery, const World *world) {
  recovery->last_write = gfx_clock();
  note_changes(recovery, world, false);
  recovery->changed = false;
}

void Recovery_frame(Recovery *recovery, const World *world, bool moved, bool hidden) {
  const bool new_maze = recovery->root != world->root->serial;
  const bool just_hidden = hidden && !recovery->was_hidden;
  recovery->was_hidden = hidden;
  note_changes(recovery, world, moved);
  const bool writing = recovery->file.stream != nullptr;
  const bool due = just_hidden || gfx_clock() - recovery->last_write >= recovery_period;
  if (new_maze || (recovery->changed && due && !writing)) begin_write(recovery, world);
  if (recovery->file.stream != nullptr) write_part(recovery);
}

bool Recovery_write(Recovery *recovery, const World *world) {
  ByteWriter *out = &recovery->emergency_writer;
  Recovery_abandon(recovery);
  note_changes(recovery, world, false);
  if (!recovery->changed) return true;
  if (!open_replacement(recovery, FileFlush::wait)) return false;
  out->file = recovery->file.stream;
  out->failed = false;
  World_write(world, out);
  recovery->changed = !close_replacement(recovery, !out->failed);
  if (recovery->changed) return false;
  report_sentence("the session has been written to \"%s\"; the next start resumes it",
                  recovery->path.c_str());
  return true;
}

void Recovery_abandon(Recovery *recovery) {
  const bool writing = recovery->file.stream != nullptr;
  if (writing) file_replace_end(&recovery->file, false);
  free_blocks(recovery);
}

void Recovery_end(Recovery *recovery, bool saved) {
  Recovery_abandon(recovery);
  const bool remove = saved && is_ours(recovery);
  const bool removed = remove && file_remove(recovery->path);
  unlock(recovery);
  if (remove && !removed) file_remove(recovery->path); // some systems can't remove a locked file
}
