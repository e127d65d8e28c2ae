// Compares carving, welding and colours with the reference implementations, and the kernels of the
// repulsion with each other.
#include "generate_reference.h"

#include <cmath>

#include <gtest/gtest.h>

#include "generate/carve.h"
#include "generate/paint.h"
#include "generate/repulsion_kernel.h"
#include "maze/edit.h"
#include "maze/lifetime.h"
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

void expect_same_and_destroy(Maze *actual, Maze *expected, uint32_t seed) {
  EXPECT_EQ(tree_text(actual), tree_text(expected)) << "seed " << seed;
  Maze_destroy(actual, 1);
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
    Maze *actual = Maze_carved(graph);
    EXPECT_EQ(rand15(), next_draw) << "number of draws, seed " << seed;
    expect_same_and_destroy(actual, expected, seed);
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

// Next to the steps between two channels, and beyond the range of the rough sine.
TEST(Reference, SineFieldMatches) {
  for (int32_t k = 0; k < 3 * 127; k++) {
    const double c = 10 * std::asin((k / 3 + 0.5) / 63.75 - 1) + (k % 3 - 1) * 1e-9;
    EXPECT_EQ(colour_field_sine({c, -7 * c, 1e20 * c}), reference_sine({c, -7 * c, 1e20 * c})) << c;
  }
}

// One kernel gets a node more, far away, so that both divide the others into different blocks. The
// digests of whole trees cover the kernel that Maze_repel takes on this processor.
TEST(Repulsion, BothKernelsAgree) {
  if (!__builtin_cpu_supports("avx2")) GTEST_SKIP() << "only one kernel runs here";
  for (int32_t n = 1; n < 20; n++) {
    SCOPED_TRACE(n);
    double at[3][20], expected[3][20] = {}, actual[3][20] = {};
    rand_seed(1);
    for (auto &axis : at) {
      for (int32_t i = 0; i < 20; i++)
        axis[i] = i < n ? rand_real(n) : 1e9;
      if (n > 6) axis[5] = axis[2]; // forces that are not finite
    }
    repel_sse2({n, at[0], at[1], at[2], expected[0], expected[1], expected[2]});
    repel_avx2({n + 1, at[0], at[1], at[2], actual[0], actual[1], actual[2]});
    for (int32_t k = 0; k < 3 * 20; k++) {
      const double a = actual[k / 20][k % 20], e = expected[k / 20][k % 20];
      EXPECT_EQ(std::isfinite(a), std::isfinite(e)) << "axis " << k / 20 << ", node " << k % 20;
      if (!std::isfinite(e)) continue;
      EXPECT_NEAR(a, e, 1e-9 * (1 + std::abs(e))) << "axis " << k / 20 << ", node " << k % 20;
    }
  }
}

} // namespace
