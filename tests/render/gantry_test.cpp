#include "render/gantry_plot.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <vector>

#include "gfx/gl.h"
#include "gfx/offscreen.h"
#include "gfx/projection.h"
#include "gfx/window.h"
#include "maze/edit.h"
#include "lamps.h"
#include "picture.h"
#include "render/apply_view.h"
#include "render/gantry_texture.h"
#include "render/plot.h"
#include "scenarios.h"
#include "support/colour.h"
#include "support/random.h"

namespace {

constexpr int size = gantry_texture_size;
constexpr double turn = 6.283185307179586;

// The plate over texture coordinates: its height, below -0.3 in holes, and the metal's normal.
double plate_height(double s, double t) {
  return std::sin(turn * 2 * s) + std::sin(turn * (s + t)) + std::sin(turn * (s - t));
}
Vec3 plate_normal(double s, double t) {
  const double steep = 3 * std::sqrt(plate_height(s, t) + 0.3);
  const double b = std::cos(turn * (s + t)), c = std::cos(turn * (s - t));
  const double dx = (std::cos(turn * 2 * s) + 0.5 * b + 0.5 * c) / steep;
  const Vec3 n = {-dx, -0.866 * (b - c) / steep, 1};
  return n * (1 / length(n));
}

std::vector<uint8_t> texture(int32_t tn) { // RGBA, lowest row first
  const GLuint name = gantry_texture(tn);
  std::vector<uint8_t> texels(size_t{size} * size * 4);
  glGetTexImage(GL_TEXTURE_2D, 0, GL_RGBA, GL_UNSIGNED_BYTE, texels.data());
  glDeleteTextures(1, &name);
  return texels;
}

// A texel is the mean of a hundred samples, on a grid that is turned a little.
TEST(Gantry, HolesAreSampledOnATurnedGrid) {
  picture_begin();
  rand_seed(3);
  const std::vector<uint8_t> texels = texture(0);
  int holes = 0;
  for (size_t i = 3; i < texels.size(); i += 4)
    holes += texels[i] == 0;
  EXPECT_NEAR(holes, 94242, 50);
  for (int trial = 0; trial < 8000; trial++) {
    const int at = rand_int(size * size);
    double alpha = 0;
    for (int i = 0; i < 100; i++) {
      const double x = i / 10, y = i % 10;
      const double s = (at % size + 0.5 + (x + y / 10) / 10) / size;
      const double t = (at / size + 0.5 + (y - x / 10) / 10) / size;
      if (plate_height(s, t) >= -0.3) alpha += 2.55;
    }
    EXPECT_NEAR(texels[static_cast<size_t>(at) * 4 + 3], alpha, 7); // rims are a matter of rounding
  }
}

// First out of sight, under a state that would spoil them; then in the window, whose 480 rows are
// all that there is of the 512.
TEST(Gantry, TexturesLeaveNoTraceAndCanDoWithTheWindow) {
  picture_begin();
  const std::vector<uint8_t> usual = texture(0);
  glClearColor(0.5F, 0.25F, 0.75F, 1);
  glClear(GL_COLOR_BUFFER_BIT);
  glViewport(100, 30, 50, 60);
  glColorMask(0, 1, 0, 0);
  glEnable(GL_BLEND);
  glBlendFunc(GL_ZERO, GL_ONE);
  glEnable(GL_SCISSOR_TEST);
  glScissor(0, 0, 3, 3);
  screen_width /= 2;
  EXPECT_EQ(texture(0), usual);
  EXPECT_TRUE(screen_width == picture_width / 2 && screen_height == picture_height);
  EXPECT_TRUE(glIsEnabled(GL_BLEND) && glIsEnabled(GL_SCISSOR_TEST));
  glDisable(GL_BLEND);
  glDisable(GL_SCISSOR_TEST);
  glColorMask(1, 1, 1, 1);
  glClearColor(0, 0, 0, 0);
  EXPECT_LE(colour_distance(picture_colour(picture_take(), 300, 200), 0x8040BFu), 1);
  picture_begin();
  int32_t window_alpha = 0;
  glGetIntegerv(GL_ALPHA_BITS, &window_alpha);
  if (window_alpha == 0) GTEST_SKIP() << "a window without alpha holds no plate";
  has_framebuffer_object = 0;
  const std::vector<uint8_t> taken = texture(0);
  has_framebuffer_object = -1;
  int off = 0;
  for (size_t i = size_t{size} * (size - picture_height) * 4; i < taken.size(); i++)
    off += std::abs(taken[i] - usual[i]);
  EXPECT_LT(off, size * picture_height * 4); // some rims may be sampled half a texel away
  const Picture picture = picture_take();
  EXPECT_EQ(std::count(picture.bgra.begin(), picture.bgra.end(), 0), 640 * 480 * 4);
}

void add_road(Maze *maze, Vec3 p, Vec3 q, uint32_t colour) {
  MazeNode node = {};
  MazeNode_init(&node, p.x, p.y, p.z);
  const auto a = static_cast<int32_t>(GrowList_append(&maze->nodes, &node));
  MazeNode_init(&node, q.x, q.y, q.z);
  Maze_join(maze, a, static_cast<int32_t>(GrowList_append(&maze->nodes, &node)));
  maze_nodes(maze)[a].edge[0].colour = maze_nodes(maze)[a + 1].edge[0].colour = colour;
}

using Corner = std::array<double, 7>; // x, y, z, s, t, angle, red of 255

// The corners that a body sends to the card. Drivers cut quads as they like.
std::vector<Corner> emitted(Maze *maze, GLenum primitive, void (*body)(Maze *)) {
  picture_begin();
  float matrix[16];
  projection_ortho(-16, 16, -12, 12, 16, -16, matrix);
  glMatrixMode(GL_PROJECTION);
  glLoadMatrixf(matrix);
  glMatrixMode(GL_MODELVIEW);
  std::array<float, 4096> buffer = {};
  glFeedbackBuffer(static_cast<GLsizei>(buffer.size()), GL_3D_COLOR_TEXTURE, buffer.data());
  glRenderMode(GL_FEEDBACK);
  glBegin(primitive);
  body(maze);
  glEnd();
  const float *const end = buffer.data() + glRenderMode(GL_RENDER);
  std::vector<Corner> corners;
  for (const float *at = buffer.data(), *next = at; at < end; at = next)
    for (next = at + 2 + static_cast<int>(at[1]) * 11, at += 2; at < next; at += 11)
      corners.push_back({at[0] / 20.0 - 16, at[1] / 20.0 - 12, at[2] * 32.0 - 16, at[7], at[8],
                         at[9], at[3] * 255.0});
  return corners;
}

bool holds(const std::vector<Corner> &corners, const Corner &one) {
  return std::any_of(corners.begin(), corners.end(), [&](const Corner &c) {
    double off = 0;
    for (size_t i = 0; i < c.size(); i++)
      off += std::abs(c[i] - one[i]);
    return off < 2e-3;
  });
}

// A road that climbs from a dead end to the door of a room, and a narrower one on from there at
// 135 degrees; apart from them a lone node and an upright road, of which nothing is to be seen.
TEST(Gantry, RoadsFitTheCornersOfBothLevels) {
  Maze *root = Maze_new(), *room = Maze_new();
  add_road(root, {-8, 0, 0}, {0, 0, 0}, 0x204060);
  add_road(room, {-2, 0, 3}, {2, 4, 3}, 0x806040);
  add_road(room, {5, 5, 5}, {5, 5, 8}, 0x123456);
  add_road(room, {7, 7, 5}, {7, 8, 5}, 0x123456);
  Maze_cut(room, 4, 5);
  room->halfwidth = 0.25;
  scenario_hold(root, 1, room);
  const double k = 0.25 / std::tan(turn * 3 / 16), e = std::sqrt(0.5) / 4;
  const double climb = 20 * std::sqrt(45.0), level = 20 * std::sqrt(32.0), angle = turn / 8;
  const std::vector<Corner> expected = {{-8, 0.5, 0, 0, 10, 0, 32},
                                        {-8, -0.5, 0, 0, -10, 0, 32},
                                        {-2 + k, -0.25, 3, climb + 20 * k, -10, 0, 32},
                                        {-2 - k, 0.25, 3, climb - 20 * k, 10, 0, 32},
                                        {-2 - k, 0.25, 3, 20 * k, 5, angle, 128},
                                        {-2 + k, -0.25, 3, -20 * k, -5, angle, 128},
                                        {2 + e, 4 - e, 3, level, -5, angle, 128},
                                        {2 - e, 4 + e, 3, level, 5, angle, 128}};
  std::vector<Corner> got = emitted(root, GL_QUADS, gantry_road_quads);
  for (const Corner &c : emitted(room, GL_QUADS, gantry_road_quads))
    if (c[0] < 4.9)
      got.push_back(c);
    else
      EXPECT_NEAR(c[0] + c[1], 10, 1e-4);
  for (const Corner &c : expected)
    EXPECT_TRUE(holds(got, c)) << c[0] << " " << c[1] << " s " << c[3];
  for (const Corner &c : got)
    EXPECT_TRUE(holds(expected, c)) << c[0] << " " << c[1] << " s " << c[3];
  got = emitted(room, GL_TRIANGLES, gantry_hub_triangles);
  EXPECT_TRUE(holds(got, {-2, 0, 3, 0, 0, 0, 128}));
  EXPECT_TRUE(holds(got, {-2 - k, 0.25, 3, -20 * k, 5, 0, 128}));
  EXPECT_TRUE(holds(got, {2 + e, 4 - e, 3, 20 * e, -20 * e, 0, 128}));
  Maze_destroy(root, 1);
}

// From straight before the middle of a road, from above and below: nothing stands in the holes, not
// even a depth, and the metal's normals turn with the road whatever its slope is.
TEST(Gantry, PlateIsLitAlongTheRoadFromBothSides) {
  const Vec3 ways[] = {{4, 0, 0}, {-2, 3, 0}, {0.3, 0.2, 4}, {0.1, -0.6, 3}, {2, -2, 1.5}};
  const Vec3 p = {8, 1, 0.5};
  const double near = 0.12;
  plot_type = 1;
  for (size_t i = 0; i < 2 * std::size(ways); i++) {
    const Vec3 d = ways[i / 2], middle = p + d * 0.5;
    const double side = i % 2 == 0 ? 1 : -1, flat = std::hypot(d.x, d.y);
    const Vec3 along = d * (1 / length(d)), left = {-d.y / flat, d.x / flat, 0};
    const Vec3 up = Mat3_rotation(along * (turn / 4)) * left;
    Maze *maze = Maze_new();
    add_road(maze, p, p + d, 0x604020);
    World world = world_from_above(maze, {maze, 0});
    const Vec3 l = left * side, u = up * side;
    world.view = {{{along.x, along.y, along.z}, {l.x, l.y, l.z}, {u.x, u.y, u.z}}};
    world.camera = middle + u * near;
    plot_light = i % 4 < 2;
    picture_begin();
    World_apply_view(&world);
    plot_world(&world);
    EXPECT_EQ(glIsEnabled(GL_BLEND), GL_FALSE);
    const Picture picture = picture_take();
    for (int y = 3; y < picture_height; y += 7)
      for (int x = 3; x < picture_width; x += 7) {
        const double a = (x - 319.5) / 320 * near, b = side * (239.5 - y) / 320 * near;
        const double s = 20 * (length(d) / 2 + a), t = 20 * b, h = plate_height(s, t);
        const uint32_t colour = picture_colour(picture, x, y);
        const float depth = picture_depth(picture, x, y);
        if (h < -0.6) {
          EXPECT_TRUE(colour == 0 && depth == 1.0F) << x << " " << y;
        }
        if (h < 0.2) continue; // rims
        const Vec3 n = plate_normal(s, t);
        const Vec3 light =
            lamp_light((along * n.x + left * n.y + up * n.z) * side, middle + along * a + left * b,
                       p + Vec3{0, 0, 1}, Vec3{5, 5, 5} * plot_light);
        const uint32_t expected =
            rgb_colour(96 * light.x / 255, 64 * light.y / 255, 32 * light.z / 255);
        EXPECT_LE(colour_distance(colour, expected), 12) << i << " at " << x << " " << y;
        EXPECT_NEAR(picture_eye_z(depth), -near, 1e-3);
      }
    Maze_destroy(maze, 1);
  }
  plot_type = plot_light = 0;
}

} // namespace
