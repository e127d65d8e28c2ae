#include "app/relaxation.h"

#include <utility>

#include <gtest/gtest.h>

#include "maze/lifetime.h"
#include "scenarios.h"

namespace {

TEST(Relaxation, SimplifyingAcceleratesToALimit) {
  // Frame time in seconds, and the fraction of its distance to node 1 that node 0 moves.
  const std::pair<double, double> cases[] = {{0.01, 0.01},
                                             {3.0, 0.05 * 1.01},        // limited in a slow frame
                                             {0.01, 0.01 * 1.01 * 4.0}, // but the whole time counts
                                             {0.01, 0},                 // released
                                             {1e9, 0.05},
                                             {1e-7, 0.1},
                                             {0.01, 1}};
  Maze *path = scenario_path(3);
  Relaxation state = {1.0};
  for (const auto &[dt, fraction] : cases) {
    for (int32_t i = 0; i < 3; i++)
      maze_nodes(path)[i].x = i;
    EXPECT_EQ(relax_frame(&state, path, dt, fraction > 0, false), fraction > 0);
    EXPECT_DOUBLE_EQ(maze_nodes(path)[0].x, fraction) << dt;
  }
  Maze_destroy(path, 1);
}

} // namespace
