#include "generate/carve.h"

#include <gtest/gtest.h>

#include "generate/owned_maze.h"
#include "literal.h"
#include "maze/edit.h"
#include "scenarios.h"
#include "support/random.h"

namespace {

// Every third edge stands twice, in places of its own on both sides.
void double_edges(Maze *maze) {
  for (int32_t i = 0; i < maze_count(maze); ++i) {
    const MazeNode node = maze_nodes(maze)[i];
    for (uint32_t r = 0; r < node.degree; ++r)
      if (rand_int(3) == 0 && node.nbr[r] > i) Maze_join(maze, i, node.nbr[r]);
  }
}

TEST(Carve, RandomGraphsBecomeTheForestOfLiteralReverseDeletion) {
  for (uint32_t seed = 1; seed <= 3000; ++seed) {
    rand_seed(seed);
    const int32_t n = 1 + rand_int(30);
    const OwnedMaze graph(scenario_random(n, rand_int(4 * n)));
    if (seed % 3 == 0) double_edges(graph.get());
    uint32_t colour = 100;
    scenario_paint(graph.get(), &colour);
    for (int32_t i = 0; i < n; ++i)
      for (MazeEdge &edge : maze_nodes(graph.get())[i].edge)
        edge.usertime = edge.roamertime = seed; // which carving sets back
    if (seed % 2 == 0) scenario_hold(graph.get(), n / 2, scenario_path(9));
    const OwnedMaze before(Maze_copy(graph.get(), 1));
    rand_seed(seed);
    const OwnedMaze wanted(literal_carved(graph.get()));
    const int32_t next_draw = rand15();
    rand_seed(seed);
    const OwnedMaze carved(Maze_carved(graph.get()));
    ASSERT_EQ(rand15(), next_draw) << "another number of draws";
    ASSERT_STREQ(literal_difference(carved.get(), wanted.get()), nullptr) << "seed " << seed;
    ASSERT_STREQ(literal_difference(graph.get(), before.get()), nullptr) << "source changed";
  }
}

} // namespace
