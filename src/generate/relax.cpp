#include "generate/relax.h"

#include <vector>

#include "generate/repulsion.h"
#include "generate/transform.h"

namespace {

Vec3 mean_of_neighbours(const MazeNode *nodes, const MazeNode &node) {
  if (node.degree == 0) return node_position(node);
  Vec3 sum = {};
  for (uint32_t row = 0; row < node.degree; row++)
    sum = sum + node_position(nodes[node.nbr[row]]);
  return sum / node.degree;
}

void move_node(MazeNode *node, Vec3 delta) {
  node->x += delta.x;
  node->y += delta.y;
  node->z += delta.z;
  if (node->submaze != nullptr) Maze_translate(node->submaze, delta, 1);
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
  MazeNode *nodes = maze_nodes(maze);
  std::vector<Vec3> places;
  places.reserve(static_cast<size_t>(maze_count(maze)));
  for (int32_t i = 0; i < maze_count(maze); i++)
    places.push_back(node_position(nodes[i]));
  const std::vector<Vec3> forces = repulsion(places);
  for (int32_t i = maze_count(maze); i-- > 0;)
    move_node(&nodes[i], forces[static_cast<size_t>(i)] * k);
}
