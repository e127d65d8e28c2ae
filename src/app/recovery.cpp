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

constexpr const char *first_name = "maze_save.recovery.dat";
constexpr const char *name_stem = "maze_save.recovery"; // of further ones, which have numbers
constexpr uint32_t blocks_per_frame = 32;               // of 64 KiB: about a millisecond

// A recovery file that no run holds.
struct Orphan {
  std::string path;
  FileLock *lock;
  FileIdentity identity;
};

// The newest first.
std::vector<Orphan> find_orphans() {
  std::vector<std::string> names = file_numbered_names(name_stem, session_ending);
  names.push_back(first_name);
  std::vector<Orphan> orphans;
  for (const std::string &name : names) {
    FileLock *lock = file_lock(name);
    if (lock != nullptr) orphans.push_back({name, lock, file_identity(name)});
  }
  std::sort(orphans.begin(), orphans.end(),
            [](const Orphan &a, const Orphan &b) { return a.identity.time > b.identity.time; });
  return orphans;
}

void rename_orphan(const Orphan &orphan, const char *stem, const char *reason) {
  file_unlock(orphan.lock);
  const std::string aside = set_aside(orphan.path, stem);
  if (aside.empty())
    report_sentence("the recovery file \"%s\" %s and can't be renamed (%s); it is left alone",
                    orphan.path.c_str(), reason, std::strerror(errno));
  else
    report_sentence("the recovery file \"%s\" %s; it has been renamed to \"%s\"",
                    orphan.path.c_str(), reason, aside.c_str());
}

void take_over(Recovery *recovery, const Orphan &orphan) {
  recovery->path = orphan.path;
  recovery->lock = orphan.lock;
  recovery->identity = orphan.identity;
  report_sentence("the last run ended without saving; its session has been resumed from \"%s\"",
                  orphan.path.c_str());
}

// False if the file can't be used.
bool resume_orphan(Recovery *recovery, World *world, const Orphan &orphan) {
  switch (World_load(world, orphan.path.c_str())) {
  case SessionLoad::loaded:
    take_over(recovery, orphan);
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

// Another program can have put its own file there, or the user can have removed ours.
bool is_ours(const Recovery *recovery) {
  const FileIdentity now = file_identity(recovery->path);
  return now.exists && now == recovery->identity;
}

void choose_path(Recovery *recovery) {
  if (!recovery->path.empty() && is_ours(recovery)) return;
  const bool taken = file_identity(first_name).exists;
  recovery->path = taken ? file_free_name(name_stem, session_ending) : first_name;
}

// Some systems don't replace a file that is locked.
void unlock(Recovery *recovery) {
  file_unlock(recovery->lock);
  recovery->lock = nullptr;
}

// After a write that was done or not.
void settle(Recovery *recovery, bool written) {
  const int cause = errno;
  if (written) recovery->identity = file_identity(recovery->path);
  if (is_ours(recovery)) recovery->lock = file_lock(recovery->path);
  if (written) return;
  recovery->changed = true;
  if (recovery->failure_reported) return;
  recovery->failure_reported = true;
  report_sentence("the recovery file \"%s\" could not be written (%s); quit to save the session",
                  recovery->path.c_str(), std::strerror(cause));
}

void free_blocks(Recovery *recovery) {
  for (uint32_t i = 0; i < recovery->blocks.count; i++)
    std::free(rows<ByteBlock>(recovery->blocks)[i].bytes);
  GrowList_free(&recovery->blocks);
}

void abandon_write(Recovery *recovery) {
  if (recovery->file.stream == nullptr) return;
  file_replace_end(&recovery->file, false);
  free_blocks(recovery);
  recovery->changed = true;
}

void begin_write(Recovery *recovery, const World *world) {
  abandon_write(recovery);
  recovery->changed = false;
  recovery->last_write = gfx_clock();
  recovery->next_block = 0;
  GrowList_init(&recovery->blocks, sizeof(ByteBlock));
  choose_path(recovery);
  if (World_serialise(world, &recovery->blocks) &&
      file_replace_begin(&recovery->file, recovery->path.c_str(), false))
    return;
  free_blocks(recovery);
  settle(recovery, false);
}

void end_write(Recovery *recovery, bool complete) {
  const int cause = errno; // of what is not complete
  free_blocks(recovery);
  unlock(recovery);
  choose_path(recovery);
  recovery->file.target = recovery->path;
  errno = cause;
  settle(recovery, file_replace_end(&recovery->file, complete, FileFlush::later));
}

void write_piece(Recovery *recovery) {
  const uint32_t end = std::min(recovery->next_block + blocks_per_frame, recovery->blocks.count);
  FILE *stream = recovery->file.stream;
  for (; recovery->next_block < end; recovery->next_block++) {
    const ByteBlock block = rows<ByteBlock>(recovery->blocks)[recovery->next_block];
    if (std::fwrite(block.bytes, 1, block.size, stream) != block.size) {
      end_write(recovery, false);
      return;
    }
  }
  file_sync_begin(stream);
  if (end == recovery->blocks.count) end_write(recovery, true);
}

void remember(Recovery *recovery, const World *world) {
  recovery->root = world->root->serial;
  recovery->cur = world->cur;
  recovery->zoom = world->zoom;
}

bool differs(const Recovery *recovery, const World *world) {
  return !Pos_equal(recovery->cur, world->cur) || recovery->zoom != world->zoom;
}

} // namespace

bool Recovery_resume(Recovery *recovery, World *world, const FileIdentity &session) {
  *recovery = {};
  bool resumed = false;
  for (const Orphan &orphan : find_orphans()) {
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
  remember(recovery, world);
}

void Recovery_frame(Recovery *recovery, const World *world, bool relaxed, bool hidden) {
  const bool new_maze = recovery->root != world->root->serial;
  const bool at_once = new_maze || (hidden && !recovery->was_hidden);
  recovery->was_hidden = hidden;
  recovery->changed |= new_maze || relaxed || differs(recovery, world);
  remember(recovery, world);
  const bool due = gfx_clock() - recovery->last_write >= recovery_period;
  if (recovery->changed && (at_once || due)) begin_write(recovery, world);
  if (recovery->file.stream != nullptr) write_piece(recovery);
}

void Recovery_write(Recovery *recovery, const World *world) {
  abandon_write(recovery);
  if (!recovery->changed) return;
  recovery->changed = false;
  unlock(recovery);
  choose_path(recovery);
  const bool written = World_save(world, recovery->path.c_str());
  settle(recovery, written);
  if (written)
    report_sentence("the session has been written to \"%s\"; the next start resumes it",
                    recovery->path.c_str());
}

void Recovery_end(Recovery *recovery, bool saved) {
  abandon_write(recovery);
  const bool ours = !recovery->path.empty() && is_ours(recovery);
  unlock(recovery);
  if (saved && ours) file_remove(recovery->path);
}
