// Culled pictures of cached display lists against pictures of new caches without culling: every
// byte of colour and depth, in both depth slabs.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "generate/carve.h"
#include "generate/topologies.h"
#include "generate/relax.h"
#include "generate/transform.h"
#include "gfx/gl.h"
#include "gfx/projection.h"
#include "gfx/window.h"
#include "maze/attachment.h"
#include "maze/attachment_names.h"
#include "maze/edit.h"
#include "maze/lifetime.h"
#include "maze/pos.h"
#include "maze/traversal.h"
#include "maze/visit.h"
#include "picture.h"
#include "render/gl/draw_cache.h"
#include "render/gl/view.h"
#include "render/line_plot.h"
#include "render/plot.h"
#include "render/plot_switches.h"
#include "scenarios.h"
#include "support/random.h"
#include "world/camera.h"
#include "world/move.h"
#include "world/roamer.h"
#include "world/small_world.h"

namespace {

constexpr int32_t width = 240, height = 180;
constexpr size_t pixels = size_t{width} * height;

using Slabs = std::vector<uint32_t>; // colours and depths of the far slab, then with the near one

struct Plot {
  const char *name;
  int32_t type, fixed, mode = -1; // the mode of a landscape
};

constexpr Plot lines = {"lines", 0, 0}, fixed_lines = {"fixed", 0, 1}, gantry = {"gantry", 1, 0},
               balls = {"balls", 2, 0}, outlines = {"outlines", 0, 0, 0}, lit = {"lit", 0, 0, 2},
               terrain = {"terrain", 0, 0, 3}, triangles = {"triangles", 0, 0, 4},
               walls = {"walls", 0, 0, 5};
constexpr Plot plots[] = {lines, fixed_lines, gantry,    balls, outlines,
                          lit,   terrain,     triangles, walls};

// `eye` is the distance of the eye from the camera along x, in world units.
Slabs draw(const World &world, const Plot &plot, double eye = 0, bool culls = true) {
  plot_type = plot.type;
  plot_fixed = plot.fixed;
  plot_voronoi = plot.mode >= 0;
  voronoi_mode = plot.mode;
  picture_begin();
  gfx_resize(width, height);
  glTranslated(eye, 0, 0);
  World_apply_view(&world);
  EyeMatrices matrices = eye_matrices_read();
  matrices.projection[8] = static_cast<float>(0.2 * eye);
  Slabs slabs(4 * pixels);
  for (size_t k = 0; k < 2; k++) {
    View view = view_make(&world, World_follow_point(&world), matrices,
                          k == 0 ? projection_far_slab : projection_near_slab);
    if (!culls) view.frustum = {};
    view_use(view);
    glClear(GL_DEPTH_BUFFER_BIT);
    plot_world(&world);
    uint32_t *colours = slabs.data() + 2 * k * pixels, *depths = colours + pixels;
    glReadPixels(0, 0, width, height, GL_BGRA, GL_UNSIGNED_BYTE, colours);
    glReadPixels(0, 0, width, height, GL_DEPTH_COMPONENT, GL_UNSIGNED_INT, depths);
  }
  return slabs;
}

Maze *in_copy(const Maze *maze, Maze *copy) {
  if (maze->parent == nullptr) return copy;
  return maze_nodes(in_copy(maze->parent, copy))[maze->parentnode].submaze;
}

// Compares with a picture of a new copy of the tree. The order of edges in a copy follows the
// addresses of its records, so a tree of several levels must be a copy itself.
Slabs draw_and_compare(const World &world, const Plot &plot, double eye = 0) {
  const Slabs slabs = draw(world, plot, eye);
  World fresh = world;
  fresh.root = Maze_copy(world.root, 1);
  fresh.cur.maze = in_copy(world.cur.maze, fresh.root);
  EXPECT_TRUE(slabs == draw(fresh, plot, eye, false)) << plot.name;
  Maze_destroy(fresh.root, 1);
  return slabs;
}

// Whether anything is drawn in the far slab (0) or the near one (1).
bool shows(const Slabs &slabs, ptrdiff_t slab) {
  const auto depths = slabs.begin() + (2 * slab + 1) * static_cast<ptrdiff_t>(pixels);
  return std::count(depths, depths + pixels, 0xFFFFFFFFU) < static_cast<ptrdiff_t>(pixels);
}

double between(double low, double high) {
  return low + rand_real(high - low);
}

// A tree of three levels, off the axes.
SmallWorld nested_world(uint32_t seed, double scale) {
  rand_seed(seed);
  Maze *nested = scenario_nested(3);
  Maze_scale(nested, scale, 1);
  Maze_rotate(nested, {0.3, -0.2, 0.4}, 1);
  Maze *copy = Maze_copy(nested, 1);
  Maze_destroy(nested, 1);
  return SmallWorld(copy);
}

Pos random_place(Maze *maze) {
  const int32_t i = rand_int(maze_count(maze));
  Maze *below = maze_nodes(maze)[i].submaze;
  return below == nullptr ? Pos{maze, i} : random_place(below);
}

void look(World *world, Pos cur, double zoom, double yaw, double pitch) {
  world->cur = cur;
  world->zoom = zoom;
  world->view = camera_orientation(yaw, pitch);
  World_place_camera(world);
}

void relax(Maze *maze) {
  Attachment_before_move(maze);
  Maze_smooth(maze, 0.3);
  Attachment_after_move(maze);
}

// Moves the user along a random edge, or along one between two levels.
void step(World *world, bool across_levels) {
  Pos from, ways[pos_max_edges], to;
  do {
    from = random_place(world->root);
    to = ways[Pos_alledges(from.maze, from.node, ways, nullptr) - 1];
  } while (across_levels && to.maze == from.maze);
  Pos_mark_usertime(from.maze, from.node, to.maze, to.node, world->time++);
  world->cur = to;
}

// The fixed plot culls with the bounds of the line plot, which is drawn first. Landscapes show no
// ages here, since they keep those of the time when they were built.
TEST(SamePicture, FromAnywhereWhileWalkingAndRelaxing) {
  SmallWorld world = nested_world(77, 171.3);
  int far_shown = 0;
  for (const Plot &plot : plots) {
    world.showtrail = plot.fixed;
    Attachment_drop_tree(world.root, attachment_cell_list);
    for (int pose = 0; pose < 6; pose++) {
      SCOPED_TRACE(pose);
      look(&world, random_place(world.root), std::pow(10.0, between(0, 4)), between(-4, 4),
           pose == 2 ? -std::acos(0.0) : between(-3, 0));
      step(&world, pose % 2 == 1);
      if (pose % 4 == 3) relax(world.root);
      draw(world, lines);
      far_shown += shows(draw_and_compare(world, plot, pose % 3 - 1), 0);
    }
  }
  EXPECT_GT(far_shown, 10);
  EXPECT_LT(far_shown, 50);
}

// Two nodes, held by one end of a single edge. The user may be where only the marker shows.
struct Pair {
  Maze *root = scenario_path(2), *inner = scenario_path(2);
  SmallWorld world{root};

  Pair() { scenario_hold(root, 1, inner); }
  // The edge to the inner maze starts far outside the picture.
  void place(Vec3 p, double halfwidth, Vec3 way = {0.1, 0, 0}) {
    scenario_move(root, 0, p + Vec3{p.x, p.y, 0} * 2);
    scenario_move(inner, 0, p);
    scenario_move(inner, 1, p + way);
    inner->halfwidth = halfwidth;
    world.offset = {-0.5 * p.x, -0.5 * p.y, 0};
    Attachment_after_move(root);
    draw(world, lines);
  }
};

// Near a plane of the frustum, as far from it as primitives extend, or close to the eye. Far away
// the width of discs depends on the distance. In the corners of the picture, quads that face the
// eye are oblique to the near and far planes.
void place_across_a_plane(Pair *pair) {
  const double depth = std::pow(10.0, between(0.5, 4)), along = between(-1.3, 1.3);
  const double side = depth + along * std::sqrt(2.0) * (0.9 + 0.005 * depth);
  const double halfwidth = rand_int(2) == 0 ? 0.05 : 0.9;
  constexpr double planes[] = {0.1, 1000.0, 1001.5};
  const double z = planes[rand_int(3)] * (1 + 0.008 * along), near = between(0.02, 0.16);
  const int kind = rand_int(5);
  pair->root->halfwidth = kind < 4 ? 0.2 : 0.001;
  pair->world.camera = {};
  if (kind == 0) pair->place({side, 0.1, -depth}, halfwidth);
  if (kind == 1) pair->place({-side, 0.1, -depth}, halfwidth);
  if (kind == 2) pair->place({0.1, side - 0.25 * depth, -depth}, halfwidth);
  if (kind == 3) pair->place({0.93 * z, 0.68 * z, -z}, 0.01);
  if (kind == 4)
    pair->place({between(-near, near), between(-near, near), -near}, between(0.1, 0.8) * near,
                {between(-0.1, 0.1), between(-0.1, 0.1), between(0, 0.1)});
}

TEST(SamePicture, OfPrimitivesAcrossEachPlaneOfTheFrustum) {
  rand_seed(12);
  Pair pair;
  int shown = 0;
  for (int pose = 0; pose < 300; pose++) {
    SCOPED_TRACE(pose);
    place_across_a_plane(&pair);
    for (const Plot &plot : {lines, gantry, balls, fixed_lines, outlines}) {
      pair.world.cur.maze = plot.mode < 0 ? pair.root : pair.inner;
      shown += shows(draw_and_compare(pair.world, plot), pose % 2);
    }
  }
  EXPECT_GT(shown, 200);
  EXPECT_LT(shown, 1000);
}

// Only caches of a maze to which an edge leads, and of one below a maze drawn alone, are dropped.
TEST(SamePicture, OfMazesThatMoved) {
  Pair pair;
  pair.world.camera = {0, 0, 10};
  pair.place({50, 0, 0}, 0.5);
  scenario_move(pair.inner, 0, {-50, 0, 0});
  scenario_move(pair.inner, 1, {-51, 0, 0});
  Attachment_drop_tree(pair.inner, attachment_line_lists);
  EXPECT_TRUE(shows(draw_and_compare(pair.world, fixed_lines), 1));
  Maze *innermost = scenario_path(2);
  scenario_hold(pair.inner, 1, innermost);
  Maze_translate(innermost, {60, 0, 0}, 0);
  pair.place({50, 0, 0}, 0.5);
  scenario_move(innermost, 1, {0, 0, 0});
  Attachment_drop_tree(innermost, attachment_line_lists);
  line_lists_call(pair.inner, 0, 1);
  EXPECT_TRUE(shows(draw_and_compare(pair.world, lines), 1));
}

int lists_in_use() {
  int count = 0;
  for (GLuint name = 1; name < 400000; name++)
    count += glIsList(name);
  return count;
}

// A plot compiles only what is visible, and draws the mazes as they were when it first ran. Edges
// to a maze that has moved stay where they were.
TEST(SamePicture, OfMazesThatChangeBeforeTheyAreVisible) {
  for (const Plot &plot : {lines, gantry, balls, outlines, lit, terrain, triangles, walls}) {
    Slabs shown[2];
    for (const bool visible : {true, false}) {
      SmallWorld world = nested_world(8, 13.7);
      look(&world, {Maze_next(world.root, world.root), 0}, 30, 0.3, -0.4);
      world.camera.x += visible ? 0 : 50000;
      const int in_use = lists_in_use();
      draw(world, plot);
      EXPECT_EQ(lists_in_use() > in_use, visible) << plot.name;
      Maze_each_node(world.root, true,
                     [](Maze *maze, int32_t i) { maze_nodes(maze)[i].self.colour ^= 0x404040; });
      relax(world.cur.maze);
      look(&world, world.cur, 30, 0.3, -0.4);
      shown[visible] = draw(world, plot);
      Attachment_after_move(world.root);
      EXPECT_FALSE(draw(world, plot) == shown[visible]);
    }
    EXPECT_TRUE(shown[0] == shown[1]) << plot.name;
  }
}

// Walls on steep ground can be far from their nodes.
TEST(SamePicture, OfWallsFarBelowTheirNodes) {
  SmallWorld world(scenario_path(5));
  constexpr Vec3 places[] = {{1.8, 0.2, 6}, {0.2, 1.4, 2}, {0.6, 0.4, 6}, {2, 0, 1}, {0.4, 1.8, 1}};
  for (int32_t i = 0; i < 5; i++)
    scenario_move(world.root, i, places[i]);
  world.camera = {14.7, 12.9, -5430};
  EXPECT_TRUE(shows(draw_and_compare(world, walls), 1));
}

// Chunks are renewed in turn, even if all are touched in each frame. A new edge shows after a drop.
TEST(SamePicture, WhereRoamersWalk) {
  rand_seed(5);
  SmallWorld world(Maze_plane_xy(192, 3));
  Maze_carve(world.root);
  look(&world, {world.root, 300}, 26, 0.3, -0.4);
  plot_roamers = true;
  const auto frames = [&](const Plot &plot, int32_t touched) {
    for (int frame = 0; frame < 12; frame++) { // two rounds
      draw_cache_begin_frame();
      draw(world, plot);
      for (int32_t node = 0; node < touched; node++)
        Attachment_touch(world.root, node);
    }
    return draw(world, plot);
  };
  for (int turn = 0; turn < 50; turn++) {
    const Plot &plot = turn < 45 ? lines : outlines;
    world.time++;
    const Slabs before = draw(world, plot);
    World_set_roamers(&world, turn % 5 == 0 ? 999 : 2);
    World_step_roamers(&world, 1);
    if (turn % 5 == 1 && plot.mode < 0) step(&world, false);
    frames(plot, turn % 5 == 0 ? 192 * 3 : 0);
    EXPECT_FALSE(draw_and_compare(world, plot) == before) << turn;
    if (plot.mode >= 0) Attachment_drop(world.root, attachment_cell_list); // it keeps ages
  }
  const Slabs before = frames(lines, 0);
  Maze_join(world.root, 0, 310);
  EXPECT_TRUE(frames(lines, 192 * 3) == before);
  plot_roamers = false;
}

// A step changes few of many primitives. Other changes move all of them, or add and remove some.
TEST(SamePicture, LinesOfALargeMazeAfterEachChange) {
  rand_seed(5);
  SmallWorld world(Maze_plane_xy(192, 3));
  Maze_carve(world.root);
  look(&world, {world.root, 300}, 14, 0.3, -0.4);
  Maze *more = scenario_path(300);
  int in_use = 0;
  for (int change = 0; change < 24; change++) {
    SCOPED_TRACE(change);
    step(&world, false);
    if (change % 6 == 3) maze_nodes(world.root)[rand_int(500)].self.colour = 0x40C0F0;
    if (change % 6 == 4) relax(world.root);
    if (change % 6 == 5) world.root->halfwidth *= 0.8;
    if (change == 14) Maze_delete_node(world.root, world.cur.node == 7 ? 8 : 7);
    if (change == 19) Maze_append(world.root, more);
    if (change % 6 >= 2) Attachment_drop(world.root, attachment_line_lists);
    draw_and_compare(world, lines);
    if (change <= 5) in_use = lists_in_use(); // those of other tests are gone by then
    EXPECT_TRUE(change >= 19 || lists_in_use() == in_use);
  }
  Maze_destroy(more, 1);
}

} // namespace
