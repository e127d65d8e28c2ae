#include <gtest/gtest.h>

#include "gfx/window.h"
#include "maze/attachment.h"
#include "picture.h"
#include "render/plot.h"

namespace {

// In a program of its own: a process has one context, and this test ends it.
TEST(Context, MazesMayOutliveItAndItMayEndTwice) {
  Maze *maze = Maze_new();
  MazeNode node = {};
  MazeNode_init(&node, 0, 0, 0);
  GrowList_append(&maze->nodes, &node);
  const World world = world_from_above(maze, {maze, 0});
  picture_begin();
  for (plot_type = 0; plot_type <= 2; plot_type++)
    plot_world(&world);
  ASSERT_NE(Attachment_find(maze, "lists"), 0);
  ASSERT_NE(Attachment_find(maze, "ballstick_ballslist"), 0);
  gfx_close();
  gfx_close();
  EXPECT_FALSE(gfx_context_alive());
  Maze_destroy(maze, 1);
}

} // namespace
