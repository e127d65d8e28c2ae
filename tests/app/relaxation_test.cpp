#include "app/relaxation.h"

#include <gtest/gtest.h>

#include "maze/attachment.h"
#include "scenarios.h"

namespace {

const char *const drawn[] = {"lists",        "ballstick_ballslist", "ballstick_stickslist",
                             "voronoi",      "voronoilist",         "gantrylist",
                             "EdgeAngleRecs"};

// Two nodes 1 apart. R with a step s leaves 1 - 2 s of the distance, E 0.8 of it and then adds a
// fifth of the force.
TEST(Relaxation, RSmoothsByTheTimeAndThenESmoothsAndRepelsByATenth) {
  const struct {
    double dt;
    bool simplify, experiment;
    double distance;
  } frames[] = {
      {0.3, false, false, 1},     {0.001, false, true, 1.190625},
      {3, false, true, 1.190625}, {0.01, true, false, 0.98},
      {3, true, false, 0.9},      {0.0625, true, true, 0.72 + 0.2 / (0.72 * 0.72 * 0.72)},
  };
  for (const auto &frame : frames) {
    SCOPED_TRACE(testing::Message()
                 << frame.dt << (frame.simplify ? " R" : "") << (frame.experiment ? " E" : ""));
    const ThreeLevels t = scenario_three_levels();
    Maze *maze = t.m2;
    Attachment_add(t.root, "lists", 1, nullptr);
    for (const char *name : drawn)
      Attachment_add(maze, name, 1, nullptr);
    Attachment_add(maze, "of another kind", 1, nullptr);
    Relaxation state = {1.0};
    const bool moved = relax_frame(&state, maze, frame.dt, frame.simplify, frame.experiment);
    const MazeNode *nodes = maze_nodes(maze);
    EXPECT_NEAR(length(node_position(nodes[1]) - node_position(nodes[0])), frame.distance, 1e-12);
    EXPECT_EQ(moved, frame.distance != 1);
    EXPECT_EQ(maze->attachments.count, moved ? 1u : 8u);
    EXPECT_EQ(t.root->attachments.count, 1u);
    Maze_destroy(t.root, 1);
  }
}

} // namespace
