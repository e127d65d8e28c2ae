#include "world/roamer.h"

#include <algorithm>
#include <vector>

#include "maze/pos.h"
#include "maze/traversal.h"
#include "maze/visit.h"
#include "support/random.h"

namespace {

constexpr int32_t max_draws = 50; // for a way that does not lead straight back

// A maze, and the number of nodes without a submaze in it and in all mazes before it.
struct PlaceCount {
  Maze *maze;
  int32_t end;
};

int32_t count_places(const Maze *maze) {
  const MazeNode *nodes = maze_nodes(maze);
  return static_cast<int32_t>(std::count_if(
      nodes, nodes + maze_count(maze), [](const auto &node) { return node.submaze == nullptr; }));
}

std::vector<PlaceCount> count_tree_places(Maze *root) {
  std::vector<PlaceCount> counts;
  int32_t end = 0;
  for (Maze *maze = root; maze != nullptr; maze = Maze_next(root, maze))
    counts.push_back({maze, end += count_places(maze)});
  return counts;
}

// The node without a submaze that has `k` such nodes before it in its maze.
Pos nth_place(Maze *maze, int32_t k) {
  int32_t node = 0;
  while (maze_nodes(maze)[node].submaze != nullptr || k-- > 0)
    node++;
  return {maze, node};
}

Pos random_place(const std::vector<PlaceCount> &counts) {
  const int32_t k = rand_int(counts.back().end);
  const auto at = std::upper_bound(counts.begin(), counts.end(), k,
                                   [](int32_t n, const PlaceCount &c) { return n < c.end; });
  const int32_t begin = at == counts.begin() ? 0 : at[-1].end;
  if (at->end - begin == maze_count(at->maze)) return {at->maze, k - begin};
  return nth_place(at->maze, k - begin);
}

} // namespace

void World_set_roamers(World *world, uint32_t count) {
  GrowList *list = &world->roamers;
  while (list->count > count)
    GrowList_remove(list, list->count - 1);
  if (list->count == count) return;
  const std::vector<PlaceCount> counts = count_tree_places(world->root);
  while (list->count < count) {
    const Pos place = random_place(counts);
    const double period = min_roamer_period + rand_real(max_roamer_period - min_roamer_period);
    const Roamer roamer = {rand_real(period), period, place, Pos_null};
    GrowList_append(list, &roamer);
  }
}

void Roamer_step(Roamer *roamer, World *world, double dt) {
  roamer->timer -= dt;
  if (roamer->timer > 0) return;
  roamer->timer = roamer->period;
  Pos ways[pos_max_edges];
  const int32_t count = Pos_alledges(roamer->cur.maze, roamer->cur.node, ways, nullptr);
  if (count == 0) return;
  Pos next = roamer->prev;
  for (int32_t i = 0; i < max_draws && Pos_equal(next, roamer->prev); i++)
    next = ways[rand_int(count)];
  Pos_mark_roamertime(roamer->cur.maze, roamer->cur.node, next.maze, next.node, world->time);
  roamer->prev = roamer->cur;
  roamer->cur = next;
}

void World_step_roamers(World *world, double dt) {
  for (uint32_t i = world->roamers.count; i-- > 0;)
    Roamer_step(&rows<Roamer>(world->roamers)[i], world, dt);
}
