#include "render/grid.h"

#include <gtest/gtest.h>

#include "gfx/gl.h"
#include "picture.h"
#include "render/apply_view.h"
#include "render/plot.h"

namespace {

struct Spot {
  Maze *maze = Maze_new();
  World world;
  Spot(double x, double y, double z) {
    MazeNode node = {};
    MazeNode_init(&node, x, y, z);
    GrowList_append(&maze->nodes, &node);
    world = world_from_above(maze, {maze, 0});
  }
  ~Spot() { Maze_destroy(maze, 1); }
  Spot(const Spot &) = delete;
  Spot &operator=(const Spot &) = delete;

  Picture draw() {
    picture_begin();
    World_apply_view(&world);
    grid_overlay(&world);
    return picture_take();
  }
};

// Brightest channel near a point, since a line may fall on either of two pixels.
uint32_t brightest(const Picture &picture, double x, double y) {
  uint32_t best = 0;
  for (int dy = -1; dy <= 1; dy++) {
    for (int dx = -1; dx <= 1; dx++) {
      const uint32_t colour = picture_colour(picture, pixel_x(x) + dx, pixel_y(y) + dy);
      best = std::max({best, colour >> 16, colour >> 8 & 255, colour & 255});
    }
  }
  return best;
}

TEST(Grid, LiesAtWholeUnitsAroundTheNodeAtItsHeight) {
  for (const int32_t smooth : {0, 1}) {
    plot_smooth_lines = smooth;
    Spot spot(0.3, 0.3, 0);
    const Picture picture = spot.draw();
    for (const double at : {-7.0, -2.0, 3.0, 8.0}) {
      EXPECT_GT(brightest(picture, at, 0.5), 60u) << "smooth " << smooth << " at " << at;
      EXPECT_GT(brightest(picture, 0.5, at), 60u) << "smooth " << smooth << " at " << at;
      EXPECT_EQ(brightest(picture, at + 0.5, 0.5), 0u);
    }
    // floor(0.3 / 10 - 0.5) * 10 is -10: the finest square ends at -10 and at 10.
    EXPECT_EQ(picture_depth(picture, pixel_x(3), pixel_y(0.5)), 1.0F) << "it writes no depth";
    EXPECT_EQ(glIsEnabled(GL_BLEND), GL_FALSE);
  }
  plot_smooth_lines = 1;
}

TEST(Grid, TheFinestSquareFollowsTheNodeByTens) {
  Spot spot(14.0, 0.3, 0); // floor(1.4 - 0.5) * 10 = 0: from 0 to 20
  const Picture picture = spot.draw();
  EXPECT_GT(brightest(picture, 3, 0.5), 60u);
  EXPECT_EQ(brightest(picture, -3, 0.5), 0u);
  // Twice as far below, whole units are half as far apart on the screen.
  Spot deep(0.3, 0.3, -16);
  const Picture far = deep.draw();
  EXPECT_GT(brightest(far, 1.5, 0.25), 60u);
  EXPECT_EQ(brightest(far, 1.25, 0.25), 0u);
}

} // namespace
