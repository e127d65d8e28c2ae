#include "app/relaxation.h"

#include <tuple>

#include <gtest/gtest.h>

#include "maze/attachment.h"
#include "scenarios.h"

namespace {

TEST(Relaxation, SimplifyingSpeedsUpToALimitAndStartsAgain) {
  const struct {
    double dt;
    bool held;
    double share; // of its way to the next node that the first one goes
  } cases[] = {{0.01, true, 0.01},
               {3.0, true, 0.05 * 1.01},        // a slow frame moves no further
               {0.01, true, 0.01 * 1.01 * 4.0}, // but its time counts
               {0.01, false, 0},
               {1e9, true, 0.05},
               {1e-7, true, 0.1},
               {0.01, true, 1}};
  Maze *path = scenario_path(3);
  Relaxation state = {1.0};
  for (const auto &[dt, held, share] : cases) {
    for (int32_t i = 0; i < 3; i++)
      maze_nodes(path)[i].x = i;
    EXPECT_EQ(relax_frame(&state, path, dt, held, false), held);
    EXPECT_DOUBLE_EQ(maze_nodes(path)[0].x, share) << dt;
  }
  Maze_destroy(path, 1);
}

TEST(Relaxation, EitherKeyDropsWhatIsDrawnOfTheMazeAndBelowIt) {
  for (const bool simplify : {true, false}) {
    const ThreeLevels t = scenario_three_levels();
    for (const char *name : {"lists", "ballstick_ballslist", "ballstick_stickslist", "voronoi",
                             "voronoilist", "gantrylist", "EdgeAngleRecs"})
      for (Maze *maze : {t.m1, t.n3, t.m2})
        Attachment_add(maze, name, 1, nullptr);
    Relaxation state = {1.0};
    relax_frame(&state, t.m1, 0.01, simplify, !simplify);
    const auto left = [](const Maze *maze) { return maze->attachments.count; };
    EXPECT_EQ(std::tuple(left(t.m1), left(t.n3), left(t.m2)), std::tuple(0u, 0u, 7u));
    Maze_destroy(t.root, 1);
  }
}

} // namespace
