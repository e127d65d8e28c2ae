#include "render/maze_list.h"

#include <algorithm>

#include "gfx/gl.h"
#include "gfx/window.h"
#include "maze/attachment.h"

namespace {

struct MazeList {
  GLuint first_name;
  GrowList chunks;  // of Box, one a display list, last nodes first
  Box all;          // with all mazes below
  GrowList below;   // of Below, last holder first
  uint64_t checked; // when all below was last known to be there
};

// A maze held by a node.
struct Below {
  Maze *maze;
  MazeList *list;
  Box box; // with all below it
};

// How often a list went. A tree that was complete since the last time still is.
uint64_t drops = 1;

// The context may be gone by the time a maze is destroyed, and its lists with it.
void list_destroy(intptr_t data, Maze *) {
  auto *list = reinterpret_cast<MazeList *>(data);
  if (gfx_context_alive())
    glDeleteLists(list->first_name, static_cast<GLsizei>(list->chunks.count));
  GrowList_free(&list->chunks);
  GrowList_free(&list->below);
  delete list;
  drops++;
}

void compile(MazeList *list, Maze *maze, const MazeListKind &kind, const World *world) {
  const int32_t count = std::max(maze_count(maze), 1);
  const int32_t chunk = std::min(kind.chunk, count);
  list->first_name = glGenLists((count + chunk - 1) / chunk);
  for (int32_t end = maze_count(maze); list->chunks.count == 0 || end > 0; end -= chunk) {
    Box box = box_empty;
    glNewList(list->first_name + list->chunks.count, GL_COMPILE);
    kind.body(maze, std::max(end - chunk, 0), end, world, &box);
    glEndList();
    GrowList_append(&list->chunks, &box);
  }
}

MazeList *list_make(Maze *maze, const MazeListKind &kind, const World *world) {
  auto *list = new MazeList{};
  GrowList_init(&list->chunks, sizeof(Box));
  compile(list, maze, kind, world);
  GrowList_init(&list->below, sizeof(Below));
  for (int32_t i = maze_count(maze) - 1; i >= 0; i--) {
    const Below row = {maze_nodes(maze)[i].submaze, nullptr, box_empty};
    if (row.maze != nullptr) GrowList_append(&list->below, &row);
  }
  Attachment_add(maze, kind.name, reinterpret_cast<intptr_t>(list), list_destroy);
  return list;
}

MazeList *find(const Maze *maze, const char *name) {
  return reinterpret_cast<MazeList *>(Attachment_find(maze, name));
}

// Makes what is missing in the whole tree, whether it can be seen or not: what a list shows depends
// on when it was made.
MazeList *complete(Maze *maze, const MazeListKind &kind, const World *world) {
  MazeList *list = find(maze, kind.name);
  if (list == nullptr) list = list_make(maze, kind, world);
  list->all = box_empty;
  for (uint32_t k = 0; k < list->chunks.count; k++)
    Box_unite(&list->all, rows<Box>(list->chunks)[k]);
  for (uint32_t i = 0; i < list->below.count; i++) {
    Below &row = rows<Below>(list->below)[i];
    row.list = complete(row.maze, kind, world);
    row.box = row.list->all;
    Box_unite(&list->all, row.box);
  }
  list->checked = drops;
  return list;
}

void call_tree(const Sight &sight, int32_t planes, const MazeList *list) {
  for (uint32_t k = 0; k < list->chunks.count; k++) {
    if (!Sight_excludes(sight, rows<Box>(list->chunks)[k], 0, planes))
      glCallList(list->first_name + k);
  }
  for (uint32_t i = 0; i < list->below.count; i++) {
    const Below &row = rows<Below>(list->below)[i];
    if (!Sight_excludes(sight, row.box, 0, planes)) call_tree(sight, planes, row.list);
  }
}

} // namespace

void maze_list_call(Maze *maze, const MazeListKind &kind, const World *world) {
  const MazeList *list = find(maze, kind.name);
  if (list == nullptr || list->checked != drops) list = complete(maze, kind, world);
  const Sight sight = sight_now();
  if (!Sight_excludes(sight, list->all, 0, kind.planes)) call_tree(sight, kind.planes, list);
}
