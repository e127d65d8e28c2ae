#include "render/line_plot.h"

#include <gtest/gtest.h>

#include <cmath>

#include "gfx/gl.h"
#include "maze/edit.h"
#include "picture.h"
#include "render/age_colour.h"
#include "render/apply_view.h"
#include "render/plot.h"
#include "support/colour.h"

namespace {

int32_t add_node(Maze *maze, double x, double y, double z = 0) {
  MazeNode node = {};
  MazeNode_init(&node, x, y, z);
  return static_cast<int32_t>(GrowList_append(&maze->nodes, &node));
}

// The core and the ring of a tube in a colour, by a quarter darker and lighter.
uint32_t core(uint32_t colour) {
  return colour_adjust(colour, -64, -64, -64);
}
uint32_t ring(uint32_t colour) {
  return colour_adjust(colour, 64, 64, 64);
}

// A cross of four arms of length 6 about node 0; the user is on node 4.
struct Cross {
  Maze *maze = Maze_new();
  World world;
  Cross() {
    add_node(maze, 0, 0);
    for (const auto &[x, y] : {std::pair{6, 0}, {-6, 0}, {0, 6}, {0, -6}}) {
      Maze_join(maze, 0, add_node(maze, x, y));
    }
    world = world_from_above(maze, {maze, 4});
  }
  ~Cross() { Maze_destroy(maze, 1); }
  void colour_edge(int32_t row, uint32_t colour, double usertime) {
    MazeNode *nodes = maze_nodes(maze);
    nodes[0].edge[row] = {colour, usertime, never};
    nodes[row + 1].edge[0] = {colour, usertime, never};
  }
  Picture draw() {
    picture_begin();
    World_apply_view(&world);
    plot_world(&world);
    return picture_take();
  }
};

#define EXPECT_COLOUR(picture, x, y, colour)                                                       \
  EXPECT_LE(colour_distance(picture_colour(picture, pixel_x(x), pixel_y(y)), colour), 2)           \
      << std::hex << picture_colour(picture, pixel_x(x), pixel_y(y)) << " for " << (colour)

TEST(LinePlot, RibbonsAndDiscsHaveTheirProfile) {
  Cross cross;
  cross.colour_edge(0, 0x6080A0, never);
  maze_nodes(cross.maze)[1].self.colour = 0x907050;
  const Picture picture = cross.draw();
  for (const double side : {-1.0, 1.0}) {
    EXPECT_COLOUR(picture, 3, side * 0.15, core(0x6080A0));
    EXPECT_COLOUR(picture, 3, side * 0.4, ring(0x6080A0));
    EXPECT_COLOUR(picture, 3, side * 0.65, 0u);
  }
  EXPECT_COLOUR(picture, 6, 0, core(0x907050));
  EXPECT_COLOUR(picture, 6.4, 0, ring(0x907050));
  EXPECT_COLOUR(picture, 6.7, 0, 0u);
  EXPECT_COLOUR(picture, 3, 3, 0u);
  // The user's marker: white, whose core is a quarter darker.
  EXPECT_COLOUR(picture, 0, -6, 0xBFBFBFu);
  EXPECT_COLOUR(picture, 0, -6.4, 0xFFFFFFu);
}

TEST(LinePlot, AgesColourWhatWasVisited) {
  Cross cross;
  cross.world.time = 5000.0;
  cross.colour_edge(0, 0x202020, cross.world.time - 10.0);
  cross.colour_edge(1, 0x202020, cross.world.time - 3000.0);
  cross.colour_edge(2, 0x202020, 0.0); // zero is a time like any other
  maze_nodes(cross.maze)[1].self = {0x202020, cross.world.time - 500.0, never};
  const Picture picture = cross.draw();
  const auto aged = [](double age) {
    const uint32_t add = agecolour_rgb(age);
    return colour_adjust(0x202020, colour_red(add), colour_green(add), colour_blue(add));
  };
  const auto near = [&](double x, double y, double age) {
    const uint32_t got = picture_colour(picture, pixel_x(x), pixel_y(y));
    EXPECT_LE(colour_distance(got, ring(aged(age))), 4) << std::hex << got << " at age " << age;
  };
  near(3, 0.4, 10.0);
  near(-3, 0.4, 3000.0);
  near(0.4, 3, 5000.0);
  near(6.4, 0, 500.0);
  EXPECT_COLOUR(picture, 0.4, -3, ring(maze_default_colour));
}

// Light across the ribbon at a place, in pixels of full white; the screen shows it through a power.
double light_across(const Picture &picture, double x) {
  double sum = 0;
  for (int y = pixel_y(2); y < pixel_y(-2); y++) {
    const uint32_t colour = picture_colour(picture, pixel_x(x), y);
    sum += std::pow((colour & 255) / 255.0, 2.2);
  }
  return sum;
}

TEST(LinePlot, RimsKeepTheirLastPixelWhereverTheyFall) {
  // Over its width of 20 pixels, a core of 12 and two rims of 4.
  const double expected = 12 * std::pow(64 / 255.0, 2.2) + 8 * std::pow(192 / 255.0, 2.2);
  for (int part = 0; part < 10; part++) {
    Cross cross;
    cross.world.camera.y += part * 0.005; // a tenth of a pixel
    EXPECT_NEAR(light_across(cross.draw(), 3), expected, expected * 0.01) << part;
  }
}

TEST(LinePlot, CoresStandForwardAndNodesBeforeTheirEdges) {
  Cross cross;
  const Picture picture = cross.draw();
  const auto eye_z = [&](double x, double y) {
    return picture_eye_z(picture_depth(picture, pixel_x(x), pixel_y(y)));
  };
  EXPECT_NEAR(eye_z(3, 0), -15.5, 0.01);
  EXPECT_NEAR(eye_z(3, 0.4), -16.5, 0.01);
  EXPECT_NEAR(eye_z(0, 0), -15.25, 0.01);
  EXPECT_NEAR(eye_z(6, 0.4), -16.5, 0.01); // the disc tilts towards the eye in x only
  EXPECT_EQ(picture_depth(picture, pixel_x(3), pixel_y(3)), 1.0F);
}

// Three rooms in a row on the parent level: a plain node, and two with mazes of two nodes each.
struct Rooms {
  Maze *root = Maze_new();
  Maze *left;
  Maze *right;
  World world;
  Rooms() {
    add_node(root, -9, 0);
    add_node(root, -1, 0);
    add_node(root, 6, 0);
    Maze_join(root, 0, 1);
    Maze_join(root, 1, 2);
    left = room(1, -3, 1);
    right = room(2, 4, 8);
    world = world_from_above(root, {left, 0});
  }
  ~Rooms() { Maze_destroy(root, 1); }
  Maze *room(int32_t holder, double from, double to) {
    Maze *maze = Maze_new();
    add_node(maze, from, 0);
    Maze_join(maze, 0, add_node(maze, to, 0));
    maze->parent = root;
    maze->parentnode = holder;
    maze_nodes(root)[holder].submaze = maze;
    return maze;
  }
};

TEST(LinePlot, EdgesBetweenLevelsAreDrawnOnceAndContainersNot) {
  Rooms rooms;
  picture_begin();
  World_apply_view(&rooms.world);
  // Added up without a depth test, an edge that is drawn twice comes out twice as bright.
  glDisable(GL_DEPTH_TEST);
  glEnable(GL_BLEND);
  glBlendFunc(GL_ONE, GL_ONE);
  line_edges_pass(rooms.root, &rooms.world, 1);
  line_nodes_pass(rooms.root, &rooms.world, 1);
  glDisable(GL_BLEND);
  glEnable(GL_DEPTH_TEST);
  const Picture picture = picture_take();
  for (const double x : {-6.0, -1.5, 2.5, 6.5}) { // to the room, in it, to its sibling, in that
    EXPECT_COLOUR(picture, x, 0, core(maze_default_colour));
    EXPECT_COLOUR(picture, x, 0.4, ring(maze_default_colour));
  }
  EXPECT_COLOUR(picture, -1, 0.4, ring(maze_default_colour)); // the container's place: no disc
}

// The left room is narrow, and one of its two doors is crossed.
TEST(LinePlot, EachLevelHasItsOwnHalfWidthAndBorder) {
  Rooms rooms;
  rooms.left->halfwidth = 0.25;
  rooms.left->bordermask = 1;
  rooms.world.cur = {rooms.left, 1};
  picture_begin();
  World_apply_view(&rooms.world);
  plot_world(&rooms.world);
  const Picture picture = picture_take();
  EXPECT_COLOUR(picture, -1.5, 0.2, ring(0xC0A040));
  EXPECT_COLOUR(picture, -1.5, 0.4, 0u);
  EXPECT_COLOUR(picture, 2.5, 0.2, ring(maze_default_colour));
  EXPECT_COLOUR(picture, 6.5, 0.4, ring(maze_default_colour));
  EXPECT_COLOUR(picture, 1, 0.2, 0xFFFFFFu); // the marker, on a door of that level
  EXPECT_COLOUR(picture, 1, 0.4, 0u);
}

} // namespace
