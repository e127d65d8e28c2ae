#include "generate/transform.h"

#include <algorithm>
#include <cmath>

#include "maze/traversal.h"
#include "support/mat3.h"
#include "support/trigonometry.h"

namespace {

// Replaces each position p by change(p).
template <typename Change> void move_nodes(Maze *root, bool recursive, const Change &change) {
  Maze_each_node(root, recursive, [&change](Maze *maze, int32_t i) {
    MazeNode &node = maze_nodes(maze)[i];
    const Vec3 p = change(node_position(node));
    node.x = p.x;
    node.y = p.y;
    node.z = p.z;
  });
}

double warp_coordinate(double c) {
  return (4.0 * c + 3.0 * portable_sin(c)) * 0.5;
}

struct PendingMaze {
  const Maze *maze;
  size_t parent; // index of the maze that holds it
};

// Returns the bounds of node 0 and the nodes without submazes of the maze with index `here`. Pushes
// its submazes, the last one on top.
Box visit_maze(const Maze *maze, size_t here, std::vector<PendingMaze> *stack) {
  Box bounds = box_empty;
  const MazeNode *nodes = maze_nodes(maze);
  if (maze_count(maze) > 0) bounds.low = bounds.high = node_position(nodes[0]);
  for (int32_t i = 0; i < maze_count(maze); i++) {
    const Vec3 p = node_position(nodes[i]);
    if (nodes[i].submaze == nullptr)
      box_unite(&bounds, {p, p});
    else
      stack->push_back({nodes[i].submaze, here});
  }
  return bounds;
}

} // namespace

void Maze_translate(Maze *maze, Vec3 v, int32_t recursive) {
  move_nodes(maze, recursive != 0, [v](Vec3 p) { return p + v; });
}

void Maze_scale(Maze *maze, double k, int32_t recursive) {
  move_nodes(maze, recursive != 0, [k](Vec3 p) { return p * k; });
}

void Maze_rotate(Maze *maze, Vec3 v, int32_t recursive) {
  if (!(length(v) > 0)) return;
  const Mat3 turn = Mat3_rotation(v);
  move_nodes(maze, recursive != 0, [&turn](Vec3 p) { return turn * p; });
}

void Maze_map_positions(Maze *maze, PositionFunction fn, int32_t recursive) {
  move_nodes(maze, recursive != 0, fn);
}

void Maze_height_wave(Maze *maze, int32_t recursive) {
  move_nodes(maze, recursive != 0, [](Vec3 p) {
    const double rise = 4.0 * (portable_sin(p.x / 4.0) + portable_sin(p.y / 4.0));
    return Vec3{p.x, p.y, p.z + rise};
  });
}

Vec3 warp_position(Vec3 p) {
  return {warp_coordinate(p.x), warp_coordinate(p.y), warp_coordinate(p.z)};
}

std::vector<Box> Maze_tree_bounds(const Maze *root) {
  std::vector<Box> tree;
  std::vector<size_t> parents; // index of each maze's parent
  std::vector<PendingMaze> stack = {{root, 0}};
  while (!stack.empty()) {
    const PendingMaze next = stack.back();
    stack.pop_back();
    parents.push_back(next.parent);
    tree.push_back(visit_maze(next.maze, tree.size(), &stack));
  }
  for (size_t k = tree.size(); k-- > 1;)
    box_unite(&tree[parents[k]], tree[k]);
  return tree;
}

void Maze_bounds(const Maze *root, Vec3 *min, Vec3 *max) {
  const Box all = Maze_tree_bounds(root)[0];
  *min = all.low;
  *max = all.high;
}

void Maze_centre(Maze *maze) {
  Vec3 sum = {};
  for (int32_t i = 0; i < maze_count(maze); i++)
    sum = sum + node_position(maze_nodes(maze)[i]);
  Maze_translate(maze, -1.0 * (sum / maze_count(maze)), 0); // no effect without nodes
}

double Maze_quad_angle(const Maze *maze, int32_t node) {
  const MazeNode &here = maze_nodes(maze)[node];
  double cosines = 0.0;
  double sines = 0.0;
  for (uint32_t slot = here.degree; slot-- > 0;) {
    const MazeNode &there = maze_nodes(maze)[here.nbr[slot]];
    const double dx = there.x - here.x;
    const double dy = there.y - here.y;
    if (dx == 0.0 && dy == 0.0) continue;
    const double fourfold = 4.0 * portable_atan2(dy, dx);
    cosines += portable_cos(fourfold);
    sines += portable_sin(fourfold);
  }
  if (cosines == 0.0 && sines == 0.0) return 0.0;
  return portable_atan2(sines, cosines) / 4.0;
}
