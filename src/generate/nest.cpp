#include "generate/nest.h"

#include <cstdio>
#include <string>

#include "generate/carve.h"
#include "generate/transform.h"
#include "maze/edit.h"
#include "maze/pos.h"
#include "support/random.h"
#include "support/strings.h"

namespace {

// Brings a maze from where it was built to the place of node i, turned in line with its edges.
void bring_to(const Maze *maze, int32_t i, Maze *room) {
  Maze_centre(room);
  Maze_rotate(room, {0, 0, Maze_quad_angle(maze, i)}, 0);
  Maze_translate(room, node_position(maze_nodes(maze)[i]), 0);
}

} // namespace

void Maze_settle(Maze *maze, int32_t i, Maze *room) {
  room->parent = maze;
  room->parentnode = i;
  Maze_align_doors(room);
  Maze_carve(room); // keeps the numbering, and with it the doors
  maze_nodes(maze)[i].submaze = room;
}

void Maze_nest(Maze *maze, double probability, double size, SubmazeGenerator generator) {
  Maze_scale(maze, size, 0);
  bool leaf = true;
  for (int32_t i = maze_count(maze); i-- > 0;) {
    Maze *below = maze_nodes(maze)[i].submaze;
    if (below == nullptr) continue;
    leaf = false;
    Maze_nest(below, probability, size, generator);
  }
  if (!leaf) return;
  for (int32_t i = maze_count(maze); i-- > 0;) {
    if (!(rand_real(1.0) < probability)) continue;
    // A door stays a plain node, so that the way through it stays a place.
    if (Pos_submaze_exit(maze, i).maze != nullptr) continue;
    Maze *room = generator(size);
    bring_to(maze, i, room);
    Maze_settle(maze, i, room);
  }
}

void Maze_label_tree(Maze *maze) {
  int32_t count = 0;
  for (int32_t i = 0; i < maze_count(maze); ++i) {
    Maze *below = maze_nodes(maze)[i].submaze;
    if (below == nullptr) continue;
    char number[16];
    std::snprintf(number, sizeof number, maze->name ? ".%02d" : "%d", ++count);
    const std::string label = (maze->name ? maze->name : "") + std::string(number);
    string_assign(&below->name, label.c_str());
    Maze_label_tree(below);
  }
}
