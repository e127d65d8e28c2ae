// Compares carving and welding with step by step implementations, on random graphs.
#include "generate_reference.h"

#include <gtest/gtest.h>

#include <limits>

#include "generate/carve.h"
#include "generate/owned_maze.h"
#include "maze/edit.h"
#include "same_tree.h"
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

TEST(Carve, TheForestIsThatOfReverseDeletion) {
  for (uint32_t seed = 1; seed <= 2000; ++seed) {
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
    rand_seed(seed);
    const OwnedMaze wanted(reference_carved(graph.get()));
    const int32_t next_draw = rand15();
    rand_seed(seed);
    const OwnedMaze carved(Maze_carved(graph.get()));
    ASSERT_EQ(rand15(), next_draw) << "another number of draws, seed " << seed;
    ASSERT_EQ(tree_difference(carved.get(), wanted.get()), "") << "seed " << seed;
  }
}

// Onto a lattice so narrow that many places coincide or are equally near, some at just 0.75.
void place_on_lattice(Maze *maze, int32_t spread) {
  for (int32_t i = 0; i < maze_count(maze); ++i)
    for (double *c : {&maze_nodes(maze)[i].x, &maze_nodes(maze)[i].y, &maze_nodes(maze)[i].z})
      *c = 0.25 * rand_int(spread * 4) - 3;
}

void place_strangely(Maze *maze) {
  const double strange[] = {std::numeric_limits<double>::quiet_NaN(),
                            std::numeric_limits<double>::infinity(), 1e300, -1e9, 2e9};
  for (const double c : strange)
    maze_nodes(maze)[rand_int(maze_count(maze))].y = c;
}

// Small pairs and large ones are searched in different ways.
TEST(Weld, NodesMergeAsBySearchingAll) {
  for (uint32_t seed = 1; seed <= 400; ++seed) {
    rand_seed(seed);
    const int32_t n = 20 + rand_int(seed % 4 == 0 ? 20 : 150);
    const OwnedMaze a(scenario_random(n, 2 * n)), b(scenario_random(n, 2 * n));
    const int32_t spread = 2 + rand_int(10);
    place_on_lattice(a.get(), spread);
    place_on_lattice(b.get(), spread);
    if (seed % 5 == 0) place_strangely(a.get());
    if (seed % 7 == 0) place_strangely(b.get());
    const OwnedMaze made(Maze_weld(a.get(), b.get())), wanted(reference_weld(a.get(), b.get()));
    ASSERT_EQ(tree_difference(made.get(), wanted.get()), "") << "seed " << seed;
  }
}

} // namespace
