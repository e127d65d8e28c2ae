#include "app/relaxation.h"

#include <utility>

#include <gtest/gtest.h>

#include "maze/attachment.h"
#include "maze/attachment_names.h"
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

TEST(Relaxation, DropsAttachmentsOfTheMazeAndBelow) {
  const ThreeLevels t = scenario_three_levels();
  for (const char *name : attachments_stale_after_move)
    for (Maze *maze : {t.m1, t.n3, t.m2})
      Attachment_add(maze, name, 1, nullptr);
  Relaxation state = {1.0};
  relax_frame(&state, t.m1, 0.01, true, false);
  for (const Maze *maze : {t.m1, t.n3, t.m2})
    EXPECT_EQ(maze->attachments.count, maze == t.m2 ? 7u : 0u);
  Maze_destroy(t.root, 1);
}

} // namespace
