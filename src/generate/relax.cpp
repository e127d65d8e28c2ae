#include "generate/relax.h"

#include <cstddef>
#include <vector>

#include "generate/repulsion_kernel.h"
#include "generate/transform.h"

namespace {

Vec3 mean_of_neighbours(const MazeNode *nodes, const MazeNode &node) {
  if (node.degree == 0) return node_position(node);
  Vec3 sum = {};
  for (uint32_t slot = 0; slot < node.degree; slot++)
    sum = sum + node_position(nodes[node.nbr[slot]]);
  return sum / node.degree;
}

void move_node(MazeNode *node, Vec3 delta) {
  node->x += delta.x;
  node->y += delta.y;
  node->z += delta.z;
  if (node->submaze != nullptr) Maze_translate(node->submaze, delta, 1);
}

bool has_avx2() {
#ifdef VOREL_AVX2_KERNEL
  return static_cast<bool>(__builtin_cpu_supports("avx2"));
#else
  return false;
#endif
}

// The force on each node from all others.
std::vector<Vec3> repulsion(const Maze *maze) {
  const size_t n = maze->nodes.count;
  std::vector<double> columns(6 * n, 0.0); // x, y and z of positions, then of forces
  for (size_t i = 0; i < n; i++) {
    const MazeNode &node = maze_nodes(maze)[i];
    columns[i] = node.x;
    columns[n + i] = node.y;
    columns[2 * n + i] = node.z;
  }
  double *start = columns.data();
  const RepulsionField field = {static_cast<int32_t>(n), start,         start + n,    start + 2 * n,
                                start + 3 * n,           start + 4 * n, start + 5 * n};
  (has_avx2() ? repel_avx2 : repel_sse2)(field);
  std::vector<Vec3> forces(n);
  for (size_t i = 0; i < n; i++)
    forces[i] = {field.fx[i], field.fy[i], field.fz[i]};
  return forces;
}

} // namespace

void Maze_smooth(Maze *maze, double k) {
  MazeNode *nodes = maze_nodes(maze);
  std::vector<Vec3> targets;
  targets.reserve(static_cast<size_t>(maze_count(maze)));
  for (int32_t i = 0; i < maze_count(maze); i++)
    targets.push_back(mean_of_neighbours(nodes, nodes[i]));
  for (int32_t i = maze_count(maze); i-- > 0;)
    move_node(&nodes[i], (targets[static_cast<size_t>(i)] - node_position(nodes[i])) * k);
}

void Maze_repel(Maze *maze, double k) {
  const std::vector<Vec3> forces = repulsion(maze);
  for (int32_t i = maze_count(maze); i-- > 0;)
    move_node(&maze_nodes(maze)[i], forces[static_cast<size_t>(i)] * k);
}
