#include "render/voronoi_plot.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

#include "generate/flat.h"
#include "gfx/gl.h"
#include "maze/attachment.h"
#include "maze/edit.h"
#include "picture.h"
#include "render/age_colour.h"
#include "render/apply_view.h"
#include "render/disc.h"
#include "render/plot.h"
#include "render/voronoi_geometry.h"
#include "render/voronoi_shapes.h"
#include "scenarios.h"
#include "support/colour.h"
#include "support/random.h"

namespace {

void expect_place(Vec3 got, Vec3 wanted) {
  EXPECT_LT(length(got - wanted), 1e-9) << got.x << " " << got.y << " " << got.z;
}

TEST(VoronoiShapes, GroundCoversEachPlaceByTheTriangleOfAnEmptyCircle) {
  rand_seed(21);
  Maze *maze = Maze_plane_xy(12, 12);
  for (int32_t i = maze_count(maze); i-- > 0;) {
    MazeNode &node = maze_nodes(maze)[i]; // so that exactly three cells meet in a corner
    node.x += rand_real(0.6);
    node.y += rand_real(0.6);
    node.self.colour = static_cast<uint32_t>(i);
  }
  voronoi_build(maze, 1);
  ShapeList list;
  for (int32_t i = 0; i < maze_count(maze); i++)
    voronoi_delaunay(&list, maze, i, nullptr);
  for (int sample = 0; sample < 500; sample++) {
    const double x = 3 + rand_real(5), y = 3 + rand_real(5);
    int covered = 0;
    for (size_t v = 0; v < list.size(); v += 3) {
      const Vec3 a = list[v].place, b = list[v + 1].place, c = list[v + 2].place;
      const auto right_of = [&](Vec3 p, Vec3 q) {
        return (q.x - p.x) * (y - p.y) < (q.y - p.y) * (x - p.x);
      };
      if (!right_of(a, b) || !right_of(b, c) || !right_of(c, a)) continue;
      covered++;
      // The lifted paraboloid: a node inside the circle would lie below the triangle.
      const auto lift = [](Vec3 p) { return Vec3{p.x, p.y, p.x * p.x + p.y * p.y}; };
      for (int32_t i = 0; i < maze_count(maze); i++) {
        const Vec3 p = node_position(maze_nodes(maze)[i]);
        EXPECT_GE(lift(p).z - plane_height(lift(a), lift(b), lift(c), p.x, p.y), -1e-9);
        const bool of_triangle = length(p - a) * length(p - b) * length(p - c) == 0;
        EXPECT_TRUE(!of_triangle || static_cast<uint32_t>(i) >= list[v].colour);
      }
    }
    EXPECT_EQ(covered, 1);
  }
  Maze_destroy(maze, 1);
}

// Two corridors: 0 - 1, which climbs by 3 over a length of 5, and 2 - 3 at the height 2. Only the
// cells of 0, 1 and 2 meet, in (2, 2). The square of node 0 reaches to 15.
struct Corridors {
  Maze *maze = Maze_new();
  World world;
  Corridors() {
    for (const Vec3 p : {Vec3{0, 0, 0}, {4, 0, 3}, {0, 4, 2}, {4, 5, 2}}) {
      MazeNode node = {};
      MazeNode_init(&node, p.x, p.y, p.z);
      node.self = {0x406080, 40, never};
      GrowList_append(&maze->nodes, &node);
    }
    Maze_join(maze, 0, 1);
    Maze_join(maze, 2, 3);
    world = world_from_above(maze, {maze, 0});
    plot_voronoi = 1;
  }
  ~Corridors() {
    Maze_destroy(maze, 1);
    plot_voronoi = 0;
    voronoi_mode = 5;
  }
  Picture draw(int32_t mode) {
    voronoi_mode = mode;
    Attachment_drop_tree(maze, "voronoilist");
    picture_begin();
    World_apply_view(&world);
    plot_world(&world);
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
    return picture_take();
  }
};

TEST(VoronoiShapes, RoomsAndRimsByHand) {
  const Corridors scene;
  voronoi_build(scene.maze, 1);
  ShapeList room, walls;
  voronoi_room(&room, scene.maze, 0, nullptr);
  ASSERT_EQ(room.size(), (4 + 2 + 8) * 3U); // floor, one wall, skirt
  expect_place(room[12].place, {-13.5, 1.8, 0});
  expect_place(room[14].place, {1.8, 1.8, 2.5}); // half of the way to node 1
  expect_place(room[12].normal, {0, -1, 0});     // inward
  EXPECT_EQ(room[12].colour, 0x80A0C0U);
  EXPECT_EQ(room[0].colour, 0x406080U);
  for (size_t v = 18; v < room.size(); v++) {
    EXPECT_EQ(room[v].colour, 0x002040U);
    EXPECT_EQ(room[v].place.z, v % 3 == 0 || v % 6 == 1 ? 0 : -5);
  }
  voronoi_walls(&walls, scene.maze, 0, nullptr);
  // Halfway on the rim, and on the plane through 0, 1 and 2; t is half the thickness.
  const Vec3 t = 0.1 * unit({0, 4, 2}), a = {-15, 2, 1}, b = {2, 2, 2.5}, head = {0, 0, 0.5};
  const Vec3 sides[] = {{0, 0, 1}, 10.0 * t, -10.0 * t, {1, 0, 0}, {-1, 0, 0}};
  const Vec3 quads[] = {a + t + head, b + t + head, b - t + head, a - t + head, a + t,
                        b + t,        b + t + head, a + t + head, a - t,        b - t,
                        b - t + head, a - t + head, b + t,        b + t + head, b - t + head,
                        b - t,        a + t,        a + t + head, a - t + head, a - t};
  ASSERT_EQ(walls.size(), 20U);
  voronoi_walls(&walls, scene.maze, 2, nullptr);
  EXPECT_EQ(walls.size(), 20U); // stand with nodes 0 and 1
  for (size_t v = 0; v < 20; v++) {
    expect_place(walls[v].place, quads[v]);
    expect_place(walls[v].normal, sides[v / 4]);
    EXPECT_EQ(walls[v].colour, 0x80A0C0U);
  }
  maze_nodes(scene.maze)[0].self.colour = 0xFFFFFF; // which is the user's alone
  voronoi_ground(&walls, scene.maze, 0, nullptr);
  EXPECT_EQ(walls.back().colour, 0xFEFEFEU);
}

TEST(VoronoiShapes, ShortEdgesHaveNoWalls) {
  // The edge between the nodes 1 and 2 is y - 2 over the square root of 2 long.
  for (const double y : {2.06, 2.08}) {
    Maze *maze = Maze_new();
    for (const Vec3 p : {Vec3{0, 0, 0}, {2, 0, 0}, {0, 2, 0}, {2, y, 0}}) {
      MazeNode node = {};
      MazeNode_init(&node, p.x, p.y, p.z);
      GrowList_append(&maze->nodes, &node);
    }
    for (const int other : {0, 3})
      Maze_join(maze, 1, other); // leaves the edge to node 2
    voronoi_build(maze, 1);
    ShapeList walls;
    voronoi_walls(&walls, maze, 1, nullptr);
    EXPECT_EQ(walls.size(), y < 2.07 ? 0U : 20U) << y;
    Maze_destroy(maze, 1);
  }
}

TEST(VoronoiPlot, ModesHaveTheirLightAndTheirAges) {
  Corridors scene;
  const uint32_t age = agecolour_rgb(60);
  const uint32_t aged =
      colour_adjust(0x406080, colour_red(age), colour_green(age), colour_blue(age));
  const Vec3 light = unit({0.5, 0.6, 0.7});
  const auto lit = [&](uint32_t colour, Vec3 normal) {
    const double k = 0.2 + 0.8 * dot(unit(normal), light);
    return rgb_colour(colour_red(colour) * k / 255, colour_green(colour) * k / 255,
                      colour_blue(colour) * k / 255);
  };
  // Of the triangle 0, 2, 1 and of two facets of the cell of 0.
  const Vec3 slope = {-0.75, -0.5, 1};
  const Vec3 south = cross({-15, -15, 0}, {2, -15, 1});
  const Vec3 north = cross({2, 2, 5.0 / 3}, {-15, 2, 2.0 / 3});
  const struct {
    uint32_t on_cell, on_ground;
  } expected[] = {{0, 0},
                  {aged, aged},
                  {lit(aged, {0, 0, 1}), lit(aged, {0, 0, 1})},
                  {lit(aged, south), lit(aged, north)},
                  {0, lit(aged, slope)},
                  {0, lit(0x406080, slope)}};
  for (int32_t mode = 0; mode < 6; mode++) {
    const Picture picture = scene.draw(mode);
    const auto at = [&](double x, double y) {
      return picture_colour(picture, pixel_x(x), pixel_y(y));
    };
    EXPECT_LE(colour_distance(at(-2, -5), expected[mode].on_cell), 2)
        << mode << std::hex << at(-2, -5);
    EXPECT_LE(colour_distance(at(0.5, 1), expected[mode].on_ground), 2)
        << mode << std::hex << at(0.5, 1);
    EXPECT_EQ(at(0, 0), 0xFFFFFFU) << mode; // the marker
    EXPECT_NEAR(picture_eye_z(picture_depth(picture, pixel_x(0), pixel_y(0))), -15.7, 0.01);
  }
  const Picture outlines = scene.draw(0);
  EXPECT_EQ(picture_colour(outlines, pixel_x(-4), pixel_y(2)), aged); // a wall
  const uint32_t open = std::max(picture_colour(outlines, pixel_x(2) - 1, pixel_y(-5)),
                                 picture_colour(outlines, pixel_x(2), pixel_y(-5)));
  EXPECT_TRUE(open != 0 && colour_green(open) < colour_green(aged)) << std::hex << open;
  EXPECT_NE(picture_colour(outlines, pixel_x(0.3), pixel_y(0)), 0xFFFFFFU) << "a small marker";
  const double nearer = 16 / (16 - 1 - 1.5 * 11 / 17 - 0.5); // the top of the wall there
  EXPECT_LE(
      colour_distance(picture_colour(scene.draw(5), pixel_x(-4 * nearer), pixel_y(2 * nearer)),
                      lit(0x80A0C0, {0, 0, 1})),
      2);
}

TEST(VoronoiPlot, ContainersAreLeftToTheirMazes) {
  Corridors scene;
  Maze *below = scenario_path(3);
  below->halfwidth = 0.5;
  scenario_hold(scene.maze, 3, below);
  for (int32_t i = 0; i < 3; i++) { // above the floors around it
    maze_nodes(below)[i].x += 8;
    maze_nodes(below)[i].z = 4;
    maze_nodes(below)[i].self.colour = 0xC08040;
  }
  const Picture picture = scene.draw(1);
  EXPECT_EQ(picture_colour(picture, pixel_x(4), pixel_y(8)), 0U);           // the container's cell
  EXPECT_EQ(picture_colour(picture, pixel_x(12), pixel_y(0.1)), 0xC08040U); // a cell in it
}

TEST(Disc, PairsAreAtRightAnglesAndDiscsHaveTheirSize) {
  rand_seed(22);
  for (int i = 0; i < 100; i++) {
    const double x = rand_real(2) - 1, y = rand_real(2) - 1, z = rand_real(2) - 1;
    for (const Vec3 v : {Vec3{x, y, z}, {x, 0, 0}, {0, y, 0}, {0, 0, z}}) {
      Vec3 a, b;
      perpendicular_pair(v, &a, &b);
      for (const double zero : {dot(a, b), dot(a, v), dot(b, v), length(a) - 1, length(b) - 1})
        EXPECT_NEAR(zero, 0, 1e-12);
    }
  }
  picture_begin();
  const World world = world_from_above(nullptr, Pos_null);
  World_apply_view(&world);
  fan_disc({0, 0, 0}, 3, 0x123456, world.camera);
  const Picture picture = picture_take();
  int inside = 0;
  for (int pixel = 0; pixel < picture_width * picture_height; pixel++) {
    const uint32_t colour = picture_colour(picture, pixel % picture_width, pixel / picture_width);
    inside += colour == 0x123456;
  }
  EXPECT_NEAR(inside, 3600 * std::sin(2 * std::numbers::pi / 23) * 23 / 2,
              40);                                   // a polygon of 23 sides
  fan_disc({0, 0, 1}, 1e18, 0x654321, world.camera); // must not ask for segments without end
  EXPECT_EQ(picture_colour(picture_take(), pixel_x(8), pixel_y(8)), 0x654321U);
}

} // namespace
