#include "maze/attachment.h"

#include <cstdlib>

#include "maze/attachment_names.h"
#include "maze/pos.h"
#include "maze/traversal.h"
#include "support/strings.h"

namespace {

// Index of the last attachment with that name, or -1.
int32_t find_last(const Maze *maze, const char *name) {
  const Attachment *table = rows<Attachment>(maze->attachments);
  for (int32_t i = static_cast<int32_t>(maze->attachments.count); i-- > 0;)
    if (ascii_equal_nocase(table[i].name, name)) return i;
  return -1;
}

void release(Attachment row, Maze *maze) {
  if (row.destructor != nullptr) row.destructor(row.data, maze);
  std::free(row.name);
}

} // namespace

intptr_t Attachment_find(const Maze *maze, const char *name) {
  const int32_t i = find_last(maze, name);
  return i < 0 ? 0 : rows<Attachment>(maze->attachments)[i].data;
}

void Attachment_add(Maze *maze, const char *name, intptr_t data, AttachmentDestructor destructor,
                    AttachmentTouch touch, AttachmentCompute compute_deferred) {
  Attachment row = {nullptr, data, destructor, touch, compute_deferred};
  str_dup_into(&row.name, name);
  GrowList_append(&maze->attachments, &row);
}

void Attachment_touch(const Maze *maze, int32_t node) {
  const Attachment *table = rows<Attachment>(maze->attachments);
  for (uint32_t i = maze->attachments.count; i-- > 0;)
    if (table[i].touch != nullptr) table[i].touch(table[i].data, node);
}

void Attachment_drop(Maze *maze, const char *name) {
  const int32_t i = find_last(maze, name);
  if (i < 0) return;
  release(rows<Attachment>(maze->attachments)[i], maze);
  GrowList_remove(&maze->attachments, static_cast<uint32_t>(i));
}

void Attachment_drop_tree(Maze *maze, const char *name) {
  for (Maze *at = maze; at != nullptr; at = Maze_next(maze, at))
    Attachment_drop(at, name);
}

void Attachment_before_move(Maze *maze) {
  if (maze->parent == nullptr) return;
  const int32_t doors = static_cast<int32_t>(maze_nodes(maze->parent)[maze->parentnode].degree);
  for (int32_t door = 0; door < doors; door++) {
    const Pos outside = Pos_submaze_exit(maze, door);
    for (uint32_t i = 0; outside.maze != nullptr && i < outside.maze->attachments.count; i++) {
      const Attachment row = rows<Attachment>(outside.maze->attachments)[i];
      if (row.compute_deferred != nullptr) row.compute_deferred(row.data, outside.node);
    }
  }
}

void Attachment_after_move(Maze *maze) {
  for (Maze *at = maze; at != nullptr; at = Maze_next(maze, at))
    for (const char *name : attachments_stale_after_move)
      Attachment_drop(at, name);
}

void Attachment_free_all(Maze *maze) {
  for (uint32_t i = maze->attachments.count; i-- > 0;)
    release(rows<Attachment>(maze->attachments)[i], maze);
  GrowList_free(&maze->attachments);
}
