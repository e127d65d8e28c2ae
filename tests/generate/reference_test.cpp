// Compares carving, welding and repelling with step by step implementations, on random graphs.
#include "generate_reference.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

#include "generate/carve.h"
#include "generate/owned_maze.h"
#include "generate/repulsion_kernel.h"
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

std::vector<Vec3> forces_by(void (*kernel)(const RepulsionField &), const Maze *maze) {
  const size_t n = maze->nodes.count;
  std::vector<double> x, y, z, forces(3 * n, 0.0);
  std::vector<Vec3> result;
  for (size_t i = 0; i < n; ++i) {
    x.push_back(maze_nodes(maze)[i].x);
    y.push_back(maze_nodes(maze)[i].y);
    z.push_back(maze_nodes(maze)[i].z);
  }
  double *const f = forces.data();
  kernel({maze_count(maze), x.data(), y.data(), z.data(), f, f + n, f + 2 * n});
  for (size_t i = 0; i < n; ++i)
    result.push_back({f[i], f[n + i], f[2 * n + i]});
  return result;
}

// Both kernels by name, of which Maze_repel takes the one for the processor. Nodes at one place get
// forces that are not finite.
TEST(Repulsion, ForcesAreTheSumsOverAllPairs) {
  for (int32_t n = 1; n < 20; ++n) {
    rand_seed(static_cast<uint32_t>(n));
    const OwnedMaze maze(scenario_random(n, 0));
    MazeNode *nodes = maze_nodes(maze.get());
    if (n > 6) MazeNode_init(&nodes[5], nodes[2].x, nodes[2].y, nodes[2].z);
    const std::vector<Vec3> wanted = reference_repulsion(maze.get());
    for (const auto kernel : {repel_by_two, repel_by_four}) {
      if (kernel == repel_by_four && !__builtin_cpu_supports("avx2")) continue;
      const std::vector<Vec3> made = forces_by(kernel, maze.get());
      for (size_t i = 0; i < wanted.size(); ++i) {
        SCOPED_TRACE(testing::Message() << "node " << i << " of " << n);
        ASSERT_EQ(is_finite(made[i]), is_finite(wanted[i]));
        if (!is_finite(wanted[i])) continue;
        ASSERT_LT(length(made[i] - wanted[i]), 1e-11 * (1 + length(wanted[i])));
      }
    }
  }
}

} // namespace
