#include "maker/statistics.h"

#include <algorithm>
#include <unordered_map>
#include <vector>

#include "maze/pos.h"
#include "maze/traversal.h"

namespace {

struct MazeEntry {
  size_t first_node; // number of its node 0
  int64_t level;     // 1 at the root
};

// Numbers all nodes of a tree from 0 on, maze by maze.
struct Numbering {
  std::unordered_map<const Maze *, MazeEntry> mazes;
  size_t nodes = 0;
  int64_t levels = 0;

  size_t of(Pos pos) const { return mazes.at(pos.maze).first_node + static_cast<size_t>(pos.node); }
};

Numbering number_nodes(const Maze *root) {
  Numbering numbering;
  for (const Maze *maze = root; maze != nullptr; maze = Maze_next(root, maze)) {
    const int64_t level = maze == root ? 1 : numbering.mazes.at(maze->parent).level + 1;
    numbering.mazes[maze] = {numbering.nodes, level};
    numbering.nodes += maze->nodes.count;
    numbering.levels = std::max(numbering.levels, level);
  }
  return numbering;
}

// The last place that a breadth-first search reaches, and how many steps away it is.
struct Farthest {
  Pos place;
  int64_t steps;
};

Farthest search(const Numbering &numbering, Pos start) {
  std::vector<int32_t> steps(numbering.nodes, -1);
  std::vector<Pos> queue = {start};
  steps[numbering.of(start)] = 0;
  for (size_t i = 0; i < queue.size(); i++) {
    const Pos here = queue[i]; // the queue moves when it grows
    Pos ways[pos_max_edges];
    for (int32_t k = Pos_alledges(here.maze, here.node, ways, nullptr); k-- > 0;) {
      int32_t &reached = steps[numbering.of(ways[k])];
      if (reached >= 0) continue;
      reached = steps[numbering.of(here)] + 1;
      queue.push_back(ways[k]);
    }
  }
  return {queue.back(), steps[numbering.of(queue.back())]};
}

// In a tree, the place farthest from any place is one end of a longest path.
int64_t longest_path_through(const Numbering &numbering, Pos place) {
  return search(numbering, search(numbering, place).place).steps;
}

} // namespace

Statistics Statistics_of(Maze *root) {
  const Numbering numbering = number_nodes(root);
  int64_t dead_ends = 0;
  Pos place = Pos_null;
  Maze_each_node(root, true, [&](Maze *maze, int32_t i) {
    if (maze_nodes(maze)[i].submaze != nullptr) return;
    Pos ways[pos_max_edges];
    if (Pos_alledges(maze, i, ways, nullptr) == 1) dead_ends++;
    place = {maze, i};
  });
  return {static_cast<int64_t>(numbering.nodes), static_cast<int64_t>(numbering.mazes.size()),
          numbering.levels, dead_ends,
          place.maze == nullptr ? 0 : longest_path_through(numbering, place)};
}
