#include "app/scene.h"

#include <gtest/gtest.h>

#include "generate/paint.h"
#include "gfx/gl.h"
#include "gfx/stereo.h"
#include "maze/edit.h"
#include "picture.h"
#include "render/apply_view.h"
#include "scenarios.h"

namespace {

TEST(Scene, BothSlabsAreDrawnAndTheNearOneCoversTheFar) {
  // A far and wide road along y, and in an unjoined node of its maze a near road along x.
  constexpr double far_z = -50000.0;
  Maze *root = scenario_random(3, 0), *near = scenario_random(2, 0);
  MazeNode_init(&maze_nodes(root)[0], 0, -20000, far_z);
  MazeNode_init(&maze_nodes(root)[1], 0, 20000, far_z);
  MazeNode_init(&maze_nodes(near)[0], -6, 0, 0);
  MazeNode_init(&maze_nodes(near)[1], 6, 0, 0);
  Maze_join(root, 0, 1);
  Maze_join(near, 0, 1);
  Maze_paint(root, 0x4040C0, 0);
  root->halfwidth = 800.0;
  scenario_hold(root, 2, near);
  World world = world_from_above(root, {near, 0});
  picture_begin();
  World_apply_view(&world);
  stereo_scene(&world);
  const Picture picture = picture_take();
  const auto colour_at = [&](int x, int y) { return picture_colour(picture, 320 + x, 240 + y); };
  EXPECT_LE(colour_distance(colour_at(0, 0), 0x404040), 2) << "the near road's core is in front";
  EXPECT_LE(colour_distance(colour_at(0, 60), 0x000080), 2) << "the far road's core";
  EXPECT_LE(colour_distance(colour_at(20, 60), 0), 2);
  EXPECT_EQ(picture_depth(picture, 320, 240), 1.0F) << "overlays stand on a clean depth buffer";
  float projection[16];
  glGetFloatv(GL_PROJECTION_MATRIX, projection);
  EXPECT_NEAR(projection[14], -0.20001997, 1e-7);
  Maze_destroy(root, 1);
}

// The offset with which the user, 16 away, stands still between the eyes.
TEST(Scene, TheEyesLookAtWhatIsFollowed) {
  Maze *root = scenario_path(6);
  World world = world_from_above(root, {root, 2});
  world.offset = {0.25, 0, 0};
  world.camera = {5, 3, 16};
  picture_begin();
  const double offset = 16 * 0.75 * 0.05 * 2 * 4 / 3;
  EXPECT_NEAR(stereo_eye_offset(&world, 0.05), offset, 1e-12);
  const auto drawn = [&world](auto &&draw) {
    picture_begin();
    World_apply_view(&world);
    draw();
    return picture_take().bgra;
  };
  const auto wanted = drawn([&] { stereo_render(stereo_scene, &world, 2, 1, offset, -0.05); });
  EXPECT_EQ(drawn([&] { scene_draw(&world, 2, 1, 0.05); }), wanted);
  EXPECT_NE(drawn([&] { scene_draw(&world, 2, 0, 0.05); }), wanted);
  Maze_destroy(root, 1);
}

} // namespace
