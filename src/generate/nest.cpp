#include "generate/nest.h"

#include <cstdio>
#include <string>

#include "generate/carve.h"
#include "generate/transform.h"
#include "maze/edit.h"
#include "maze/pos.h"
#include "maze/traversal.h"
#include "support/random.h"
#include "support/strings.h"

namespace {

// Centres a maze on node i and turns it to line up with the node's edges.
void place_at_node(const Maze *maze, int32_t i, Maze *submaze) {
  Maze_centre(submaze);
  Maze_rotate(submaze, {0, 0, Maze_quad_angle(maze, i)}, 0);
  Maze_translate(submaze, node_position(maze_nodes(maze)[i]), 0);
}

void nest_leaf(Maze *maze, double probability, double size, SubmazeGenerator generator) {
  for (int32_t i = maze_count(maze); i-- > 0;) {
    if (!(rand_real(1.0) < probability)) continue;
    if (Pos_submaze_exit(maze, i).maze != nullptr) continue; // a door must not hold a maze
    Maze *submaze = generator(size);
    place_at_node(maze, i, submaze);
    Maze_attach_submaze(maze, i, submaze);
  }
}

void label_below(Maze *maze) {
  int32_t count = 0;
  const std::string prefix = maze->name != nullptr ? maze->name : "";
  for (int32_t i = 0; i < maze_count(maze); i++) {
    Maze *below = maze_nodes(maze)[i].submaze;
    if (below == nullptr) continue;
    count++;
    char number[16];
    std::snprintf(number, sizeof number, maze->name != nullptr ? ".%02d" : "%d", count);
    string_assign(&below->name, (prefix + number).c_str());
  }
}

} // namespace

void Maze_attach_submaze(Maze *maze, int32_t i, Maze *submaze) {
  submaze->parent = maze;
  submaze->parentnode = i;
  Maze_align_doors(submaze);
  Maze_carve(submaze); // keeps the indices, and so the doors
  maze_nodes(maze)[i].submaze = submaze;
}

void Maze_nest(Maze *root, double probability, double size, SubmazeGenerator generator) {
  for (Maze *maze = root; maze != nullptr;) {
    Maze *next = Maze_next(root, maze); // skips the new mazes
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
