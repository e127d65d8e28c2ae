// The kernels of the repulsion by name: which of them Maze_repel takes depends on the processor.
#include "generate/repulsion_kernel.h"

#include <gtest/gtest.h>

#include <vector>

#include "generate/owned_maze.h"
#include "generate_reference.h"
#include "scenarios.h"
#include "support/random.h"

namespace {

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

// Nodes at one place get forces that are not finite.
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
