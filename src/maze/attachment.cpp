#include "maze/attachment.h"

#include <cstdlib>

#include "maze/walk.h"
#include "support/strings.h"

// The last row of that name, or -1.
static int32_t find_row(const Maze *maze, const char *name) {
  const Attachment *table = rows<Attachment>(maze->attachments);
  for (int32_t i = static_cast<int32_t>(maze->attachments.count); i-- > 0;)
    if (ascii_equal(table[i].name, name)) return i;
  return -1;
}

intptr_t Attachment_find(const Maze *maze, const char *name) {
  const int32_t i = find_row(maze, name);
  return i < 0 ? 0 : rows<Attachment>(maze->attachments)[i].data;
}

void Attachment_add(Maze *maze, const char *name, intptr_t data, AttachmentDestructor destructor) {
  Attachment row = {nullptr, data, destructor};
  str_dup_into(&row.name, name);
  GrowList_append(&maze->attachments, &row);
}

void Attachment_drop(Maze *maze, const char *name) {
  const int32_t i = find_row(maze, name);
  if (i < 0) return;
  const Attachment row = rows<Attachment>(maze->attachments)[i];
  if (row.destructor) row.destructor(row.data, maze);
  std::free(row.name);
  GrowList_remove(&maze->attachments, static_cast<uint32_t>(i));
}

void Attachment_drop_tree(Maze *maze, const char *name) {
  for (Maze *at = maze; at; at = Maze_next(maze, at))
    Attachment_drop(at, name);
}
