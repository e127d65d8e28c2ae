#include "scenarios.h"

#include <cmath>
#include <initializer_list>

#include "maze/edit.h"
#include "maze/lifetime.h"
#include "maze/pos.h"
#include "support/random.h"

namespace {

void add_node(Maze *maze, Vec3 p) {
  MazeNode node{};
  MazeNode_init(&node, p.x, p.y, p.z);
  GrowList_append(&maze->nodes, &node);
}

Maze *nested(int32_t depth, double spacing, Vec3 centre) {
  Maze *maze = scenario_grid(4, 4, spacing, centre);
  for (const int32_t i : {5, 6, 10}) { // not doors, which are on the rim
    if (depth < 2) continue;
    scenario_hold(maze, i, nested(depth - 1, spacing / 6, node_position(maze_nodes(maze)[i])));
    Maze_align_doors(maze_nodes(maze)[i].submaze);
  }
  return maze;
}

} // namespace

Maze *scenario_path(int32_t count) {
  return scenario_grid(count, 1, 1.0, {0.5 * (count - 1), 0.0, 0.0});
}

Maze *scenario_grid(int32_t width, int32_t height, double spacing, Vec3 centre) {
  Maze *maze = Maze_new();
  for (int32_t i = 0; i < width * height; i++) {
    const int32_t column = i % width, row = i / width;
    add_node(maze,
             centre + Vec3{column - 0.5 * (width - 1), row - 0.5 * (height - 1), 0} * spacing);
    if (column > 0) Maze_join(maze, i - 1, i);
    if (row > 0) Maze_join(maze, i - width, i);
  }
  return maze;
}

Maze *scenario_random(int32_t count, int32_t edges) {
  Maze *maze = Maze_new();
  const double side = std::cbrt(count);
  for (int32_t i = 0; i < count; i++) {
    const double x = rand_real(side), y = rand_real(side), z = rand_real(side);
    add_node(maze, {x, y, z});
    maze_nodes(maze)[i].self.colour = static_cast<uint32_t>(i);
  }
  for (int32_t i = 0; i < edges; i++) {
    const int32_t a = rand_int(count), b = rand_int(count);
    if (a != b && MazeNode_find_slot(maze_nodes(maze)[a], b) < 0) Maze_join(maze, a, b);
  }
  return maze;
}

void scenario_hold(Maze *maze, int32_t node, Maze *below) {
  maze_nodes(maze)[node].submaze = below;
  below->parent = maze;
  below->parentnode = node;
}

void scenario_move(Maze *maze, int32_t node, Vec3 to) {
  MazeNode &moved = maze_nodes(maze)[node];
  moved.x = to.x;
  moved.y = to.y;
  moved.z = to.z;
}

ThreeLevels scenario_three_levels() {
  ThreeLevels t = {scenario_path(4), scenario_path(4), scenario_path(2), scenario_path(3),
                   scenario_path(2)};
  // Doors come first, so the middle nodes of m1 are 2 and 3.
  Maze_swap_nodes(t.m1, 1, 2);
  Maze_swap_nodes(t.m1, 1, 3);
  scenario_hold(t.root, 1, t.m1);
  scenario_hold(t.root, 2, t.m2);
  scenario_hold(t.m1, 2, t.n2);
  scenario_hold(t.m1, 3, t.n3);
  return t;
}

Maze *scenario_deep(int32_t levels) {
  Maze *root = scenario_path(2);
  for (int32_t level = 1; level < levels; level++) {
    Maze *above = scenario_path(2);
    scenario_hold(above, 1, root);
    root = above;
  }
  return root;
}

Maze *scenario_nested(int32_t depth) {
  return nested(depth, 1.0, {});
}
