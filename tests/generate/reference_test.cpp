// Compares carving, welding and repelling with the reference implementations, on random graphs.
#include "generate_reference.h"

#include <gtest/gtest.h>

#include "generate/carve.h"
#include "generate/repulsion_kernel.h"
#include "maze/edit.h"
#include "scenarios.h"
#include "support/random.h"
#include "tree_text.h"

namespace {

// A random graph with some doubled edges, and with colours and times.
Maze *tangle(int32_t count) {
  Maze *maze = scenario_random(count, rand_int(4 * count));
  for (int32_t i = 0; i < maze_count(maze); i++) {
    MazeNode *nodes = maze_nodes(maze);
    if (nodes[i].degree > 0 && rand_int(2) == 0) Maze_join(maze, i, nodes[i].nbr[0]);
    for (MazeEdge &edge : nodes[i].edge)
      edge = {static_cast<uint32_t>(rand15()), 3.1, 2.7};
  }
  return maze;
}

void expect_same_and_destroy(Maze *made, Maze *expected, uint32_t seed) {
  EXPECT_EQ(tree_text(made), tree_text(expected)) << "seed " << seed;
  Maze_destroy(made, 1);
  Maze_destroy(expected, 1);
}

TEST(Reference, CarvingMatches) {
  for (uint32_t seed = 1; seed <= 1000 && !HasFailure(); seed++) {
    rand_seed(seed);
    Maze *graph = tangle(1 + rand_int(30));
    if (seed % 2 == 0) scenario_hold(graph, maze_count(graph) / 2, scenario_path(9));
    rand_seed(seed);
    Maze *expected = reference_carved(graph);
    const int32_t next_draw = rand15();
    rand_seed(seed);
    Maze *made = Maze_carved(graph);
    EXPECT_EQ(rand15(), next_draw) << "number of draws, seed " << seed;
    expect_same_and_destroy(made, expected, seed);
    Maze_destroy(graph, 1);
  }
}

// On a fine lattice, where many nodes coincide, are equally near, or exactly 0.75 apart. Small
// mazes use brute force, large ones a grid.
TEST(Reference, WeldingMatches) {
  for (uint32_t seed = 1; seed <= 300 && !HasFailure(); seed++) {
    rand_seed(seed);
    const int32_t count = 20 + rand_int(seed % 4 == 0 ? 20 : 150), spread = 8 + rand_int(40);
    Maze *mazes[] = {tangle(count), tangle(count)};
    for (Maze *maze : mazes)
      for (int32_t i = 0; i < count; i++) {
        const int32_t x = rand_int(spread), y = rand_int(spread), z = rand_int(spread);
        scenario_move(maze, i, 0.25 * Vec3{x - 3.0, y - 3.0, z - 3.0});
      }
    maze_nodes(mazes[seed % 2])[0].y = seed % 3 == 0 ? 1e300 : 0.0 / seed;
    expect_same_and_destroy(Maze_weld(mazes[0], mazes[1]), reference_weld(mazes[0], mazes[1]),
                            seed);
    for (Maze *maze : mazes)
      Maze_destroy(maze, 1);
  }
}

// Maze_repel takes the kernel for the processor.
TEST(Repulsion, BothKernelsAddTheForcesOfAllPairs) {
  for (int32_t n = 1; n < 20; n++) {
    rand_seed(1);
    Maze *maze = scenario_random(n, 0);
    const MazeNode *nodes = maze_nodes(maze);
    if (n > 6) scenario_move(maze, 5, node_position(nodes[2])); // forces that are not finite
    double at[3][20];
    for (int32_t i = 0; i < n; i++) {
      at[0][i] = nodes[i].x;
      at[1][i] = nodes[i].y;
      at[2][i] = nodes[i].z;
    }
    const std::vector<Vec3> wanted = reference_repulsion(maze);
    for (const auto kernel : {repel_sse2, repel_avx2}) {
      if (kernel == repel_avx2 && !__builtin_cpu_supports("avx2")) continue;
      double forces[3][20] = {};
      kernel({n, at[0], at[1], at[2], forces[0], forces[1], forces[2]});
      for (size_t i = 0; i < wanted.size(); i++) {
        SCOPED_TRACE(testing::Message() << "node " << i << " of " << n);
        const Vec3 made = {forces[0][i], forces[1][i], forces[2][i]};
        EXPECT_EQ(is_finite(made), is_finite(wanted[i]));
        if (!is_finite(made)) continue;
        EXPECT_LT(length(made - wanted[i]), 1e-9 * (1 + length(wanted[i])));
      }
    }
    Maze_destroy(maze, 1);
  }
}

} // namespace
