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

// Makes `room` the maze that node i holds: in its place, turned, with its doors, carved.
void move_in(Maze *maze, int32_t i, Maze *room) {
  Maze_translate(room, Vec3{} - Maze_mean(room), 0);
  Maze_rotate(room, {0, 0, Maze_quad_angle(maze, i)}, 0);
  room->parent = maze;
  room->parentnode = i;
  Maze_translate(room, node_position(maze_nodes(maze)[i]), 0);
  Maze_align_doors(room);
  Maze_carve(room); // keeps the numbering, and with it the doors
  maze_nodes(maze)[i].submaze = room;
}

} // namespace

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
    move_in(maze, i, generator(size));
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
