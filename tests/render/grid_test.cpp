#include "render/grid.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "gfx/gl.h"
#include "gfx/projection.h"
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
}

// From far above only the spacings that suit the view show, each third of the decades in its own
// channel; 20 pixels lie between two lines.
TEST(Grid, SevenDecadesInThreeColours) {
  struct View {
    double spacing;
    int channel_shift;
  };
  for (const View view : {View{1, 0}, View{100, 0}, View{1000, 8}, View{1e5, 8}, View{1e6, 16}}) {
    Spot spot(0.3 * view.spacing, 0.3 * view.spacing, 0);
    spot.world.camera.z = 16.0 * view.spacing;
    picture_begin();
    float projection[16];
    glGetFloatv(GL_PROJECTION_MATRIX, projection);
    if (view.spacing > 50) projection_far_slab(projection);
    if (view.spacing > 5e5) projection[14] *= 100.0F; // near and far planes a hundred times farther
    glMatrixMode(GL_PROJECTION);
    glLoadMatrixf(projection);
    glMatrixMode(GL_MODELVIEW);
    glClearColor(0.25F, 0.25F, 0.25F, 0);
    glClear(GL_COLOR_BUFFER_BIT);
    World_apply_view(&spot.world);
    grid_overlay(&spot.world);
    glClearColor(0, 0, 0, 0);
    const Picture picture = picture_take();
    int lines = 0;
    for (int x = 0; x < picture_width; x++) {
      const uint32_t colour = picture_colour(picture, x, pixel_y(0.5));
      const uint32_t own = colour >> view.channel_shift & 255;
      const uint32_t red_or_blue = colour >> (view.channel_shift == 0 ? 16 : 0) & 255;
      EXPECT_GE(red_or_blue, 63u) << "it adds to what is there";
      if (own > red_or_blue + 60) lines++;
    }
    EXPECT_GE(lines, 15) << "spacing " << view.spacing;
    EXPECT_LE(lines, 84) << "spacing " << view.spacing;
  }
}

} // namespace
