#include "generate/repulsion_kernel.h"

#include <gtest/gtest.h>

#include "generate_reference.h"
#include "scenarios.h"
#include "support/random.h"

namespace {

// Maze_repel takes the kernel for the processor.
TEST(Repulsion, BothKernelsAddTheForcesOfAllPairs) {
  for (int32_t n = 1; n < 20; ++n) {
    rand_seed(1);
    Maze *maze = scenario_random(n, 0);
    const MazeNode *nodes = maze_nodes(maze);
    if (n > 6) scenario_move(maze, 5, node_position(nodes[2])); // forces that are not finite
    double at[3][20];
    for (int32_t i = 0; i < n; ++i) {
      at[0][i] = nodes[i].x;
      at[1][i] = nodes[i].y;
      at[2][i] = nodes[i].z;
    }
    const std::vector<Vec3> wanted = reference_repulsion(maze);
    for (const auto kernel : {repel_by_two, repel_by_four}) {
      if (kernel == repel_by_four && !__builtin_cpu_supports("avx2")) continue;
      double forces[3][20] = {};
      kernel({n, at[0], at[1], at[2], forces[0], forces[1], forces[2]});
      for (size_t i = 0; i < wanted.size(); ++i) {
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
