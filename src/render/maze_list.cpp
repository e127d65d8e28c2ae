#include "render/maze_list.h"

#include "gfx/gl.h"
#include "gfx/window.h"
#include "maze/attachment.h"

namespace {

struct MazeList {
  GLuint name;
  GrowList below; // of Maze *, last holder first
};

// The context may be gone by the time a maze is destroyed, and its lists with it.
void list_destroy(intptr_t data, Maze *) {
  auto *list = reinterpret_cast<MazeList *>(data);
  if (gfx_context_alive()) glDeleteLists(list->name, 1);
  GrowList_free(&list->below);
  delete list;
}

MazeList *list_make(Maze *maze, const char *name, MazeListBody body, const World *world) {
  auto *list = new MazeList{};
  list->name = glGenLists(1);
  glNewList(list->name, GL_COMPILE);
  body(maze, world);
  glEndList();
  GrowList_init(&list->below, sizeof(Maze *));
  for (int32_t i = maze_count(maze) - 1; i >= 0; i--) {
    Maze *submaze = maze_nodes(maze)[i].submaze;
    if (submaze != nullptr) GrowList_append(&list->below, &submaze);
  }
  Attachment_add(maze, name, reinterpret_cast<intptr_t>(list), list_destroy);
  return list;
}

} // namespace

void maze_list_call(Maze *maze, const char *name, MazeListBody body, const World *world) {
  auto *list = reinterpret_cast<MazeList *>(Attachment_find(maze, name));
  if (list == nullptr) list = list_make(maze, name, body, world);
  glCallList(list->name);
  for (uint32_t i = 0; i < list->below.count; i++) {
    maze_list_call(rows<Maze *>(list->below)[i], name, body, world);
  }
}
