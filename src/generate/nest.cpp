#include "generate/nest.h"

#include <cstdio>
#include <string>

#include "generate/carve.h"
#include "generate/transform.h"
#include "maze/edit.h"
#include "maze/pos.h"
#include "maze/walk.h"
#include "support/random.h"
#include "support/strings.h"

namespace {

// Brings a maze from where it was built to the place of node i, turned in line with its edges.
void bring_to(const Maze *maze, int32_t i, Maze *room) {
  Maze_centre(room);
  Maze_rotate(room, {0, 0, Maze_quad_angle(maze, i)}, 0);
  Maze_translate(room, node_position(maze_nodes(maze)[i]), 0);
}

// Nests mazes in the nodes of a single leaf maze.
void nest_leaf(Maze *maze, double probability, double size, SubmazeGenerator generator) {
  for (int32_t i = maze_count(maze); i-- > 0;) {
    if (!(rand_real(1.0) < probability)) continue;
    // A door stays a plain node, so that the way through it stays a place.
    if (Pos_submaze_exit(maze, i).maze != nullptr) continue;
    Maze *room = generator(size);
    bring_to(maze, i, room);
    Maze_settle(maze, i, room);
  }
}

void label_below(Maze *maze) {
  int32_t count = 0;
  for (int32_t i = 0; i < maze_count(maze); i++) {
    Maze *below = maze_nodes(maze)[i].submaze;
    if (below == nullptr) continue;
    char number[16];
    std::snprintf(number, sizeof number, maze->name != nullptr ? ".%02d" : "%d", ++count);
    const std::string label = (maze->name != nullptr ? maze->name : "") + std::string(number);
    string_assign(&below->name, label.c_str());
  }
}

} // namespace

void Maze_settle(Maze *maze, int32_t i, Maze *room) {
  room->parent = maze;
  room->parentnode = i;
  Maze_align_doors(room);
  Maze_carve(room); // keeps the numbering, and with it the doors
  maze_nodes(maze)[i].submaze = room;
}

void Maze_nest(Maze *root, double probability, double size, SubmazeGenerator generator) {
  for (Maze *maze = root; maze != nullptr;) {
    Maze *next = Maze_next(root, maze); // before there are new mazes below
    Maze_scale(maze, size, 0);
    if (Maze_last_child_before(maze, maze_count(maze)) == nullptr)
      nest_leaf(maze, probability, size, generator);
    maze = next;
  }
}

void Maze_label_tree(Maze *root) {
  for (Maze *maze = root; maze != nullptr; maze = Maze_next(root, maze))
    label_below(maze);
}
