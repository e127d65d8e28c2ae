#include "render/fixed_plot.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <set>
#include <tuple>
#include <vector>

#include "generate/choose.h"
#include "generate/transform.h"
#include "gfx/gl.h"
#include "gfx/projection.h"
#include "maze/edit.h"
#include "maze/pos.h"
#include "maze/reach.h"
#include "maze/visit.h"
#include "picture.h"
#include "render/apply_view.h"
#include "render/connected_area.h"
#include "render/edge_colour.h"
#include "render/plot.h"
#include "scenarios.h"
#include "support/colour.h"
#include "support/random.h"
#include "text/fonts.h"
#include "world/camera.h"

namespace {

Picture draw(const World &world) {
  picture_begin();
  World_apply_view(&world);
  plot_world(&world);
  EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
  EXPECT_FALSE(glIsEnabled(GL_BLEND) || glIsEnabled(GL_LINE_SMOOTH));
  return picture_take();
}

uint32_t lit(uint32_t colour, int32_t by) {
  return colour_adjust(colour, by, by, by);
}

// A strip from `at` along `e`, between `low` and `high` along `side`; or, without `e`, a disc of
// radius `high` that faces the eye.
struct Patch {
  Vec3 at, e, side;
  double low, high;
  uint32_t colour;
};

// What is due of a tree or, with `reached`, of such nodes of a single maze.
struct Due {
  std::vector<Patch> patches;
  int lines;
  Vec3 line_sum; // of the places of all lines' ends
};

void collect(Maze *maze, const World &world, const uint8_t *reached, Due *due) {
  std::free(maze->name); // a label would count too
  maze->name = nullptr;
  const double w = maze->halfwidth;
  for (int32_t i = 0; i < maze_count(maze); i++) {
    const Pos here = {maze, i};
    const MazeNode &node = maze_nodes(maze)[i];
    if (node.submaze && !reached) collect(node.submaze, world, nullptr, due);
    if (node.submaze || (reached && !reached[i])) continue;
    const Vec3 p = node_position(node), to_eye = world.camera - p, u = unit(to_eye);
    const bool near = length(to_eye) < 100;
    Pos ends[pos_max_edges];
    MazeEdge rows[pos_max_edges];
    for (int32_t e = Pos_edges(maze, i, reached == nullptr, ends, rows); e-- > 0;) {
      if (!Pos_before(here, ends[e])) continue;
      const Vec3 q = Pos_position(ends[e]), along = q - p, side = unit(cross(along, to_eye));
      const uint32_t c = visit_colour(rows[e], here, ends[e], &world);
      if (near) {
        due->patches.push_back({p - w * u, along, side, 0.6 * w, w, lit(c, 64)});
        due->patches.push_back({p - w * u, along, side, -w, -0.6 * w, lit(c, 64)});
        due->patches.push_back({p + w * u, along, side, -0.6 * w, 0.6 * w, lit(c, -64)});
      } else {
        due->lines++;
        due->line_sum = due->line_sum + p + q;
      }
    }
    const uint32_t c = visit_colour(node.self, here, Pos_null, &world);
    const bool user = Pos_equal(here, world.cur);
    if (!near) continue;
    due->patches.push_back({p - w * u, {}, {}, 0, w, user ? 0xFFFFFF : lit(c, 64)});
    due->patches.push_back({p + 1.5 * w * u, {}, {}, 0, 0.6 * w, user ? 0xFFFFFF : lit(c, -64)});
  }
}

// What a ray from the eye meets first, and where in multiples of d; 0 if nothing, `unclear` if
// another colour is at the same place.
constexpr uint32_t unclear = 0x1000000;
uint32_t seen(const std::vector<Patch> &patches, Vec3 eye, Vec3 d, double *where) {
  uint32_t colour = 0;
  *where = 1e9;
  for (const Patch &patch : patches) {
    const bool disc = length_squared(patch.e) == 0;
    const Vec3 n = disc ? patch.at - eye : cross(patch.e, patch.side);
    const double k = dot(patch.at - eye, n) / dot(d, n);
    const Vec3 x = eye + d * k - patch.at;
    const double a = dot(x, patch.e), t = disc ? length(x) : dot(x, patch.side);
    if (!(k > 0.1 && k < *where + 2e-3) || t < patch.low || t > patch.high) continue;
    if (a < 0 || a > length_squared(patch.e)) continue;
    if (std::abs(k - *where) < 2e-3 && patch.colour != colour)
      colour = unclear;
    else
      colour = patch.colour;
    *where = std::min(k, *where);
  }
  return colour;
}

// Colours and depths of a nested tree with trails of the user and a Roamer, from several sides.
TEST(FixedPlot, EveryPixelIsThatOfTheNearestBandOrDisc) {
  rand_seed(8);
  Maze *root = scenario_nested(2);
  Maze *room = maze_nodes(root)[5].submaze;
  World world = world_from_above(root, {room, 9});
  Maze_scale(root, 6, 1);
  Maze_height_wave(root, 1);
  room->halfwidth = 0.2;
  uint32_t next = 0x301040;
  scenario_paint(root, &next);
  room->bordermask = 1;
  for (Pos user = world.cur, roamer = {root, 0}; world.time < 300; world.time += 2) {
    Pos out[pos_max_edges];
    const Pos to = out[rand_int(Pos_alledges(user.maze, user.node, out, nullptr))];
    Pos_mark_usertime(user.maze, user.node, to.maze, to.node, world.time);
    user = to;
    const Pos on = out[rand_int(Pos_alledges(roamer.maze, roamer.node, out, nullptr))];
    Pos_mark_roamertime(roamer.maze, roamer.node, on.maze, on.node, world.time);
    roamer = on;
  }
  plot_fixed = 1;
  int checked = 0;
  for (const double pitch : {0.0, -0.4, -1.0, -1.5}) {
    world.view = camera_orientation(pitch * 2, pitch);
    world.camera = Pos_position(world.cur) + 7.0 * Mat3_row(world.view, 2);
    const Picture picture = draw(world);
    Due due = {};
    collect(root, world, nullptr, &due);
    for (int y = 2; y < picture_height; y += 5)
      for (int x = 2; x < picture_width; x += 5) {
        uint32_t colour = unclear;
        double k = 0;
        for (const auto &[dx, dy] : {std::pair{-1, 0}, {1, 0}, {0, -1}, {0, 1}, {0, 0}}) {
          const Vec3 d = Mat3_row(world.view, 0) * ((x + dx - 319.5) / 320) +
                         Mat3_row(world.view, 1) * ((239.5 - y - dy) / 320) -
                         Mat3_row(world.view, 2);
          const uint32_t before = colour;
          colour = seen(due.patches, world.camera, d, &k);
          if (colour == unclear || (dx >= 0 && colour != before)) break;
          if (dx != 0 || dy != 0) continue;
          EXPECT_LE(colour_distance(picture_colour(picture, x, y), colour), 1) << x << " " << y;
          if (colour != 0) {
            EXPECT_NEAR(picture_eye_z(picture_depth(picture, x, y)), -k, 1e-3 * k);
          }
          checked += colour != 0;
        }
      }
  }
  EXPECT_GT(checked, 6000);
  plot_fixed = 0;
  Maze_destroy(root, 1);
}

// What reaches the card. Drivers cut quads into parts as they like.
struct Drawn {
  int quads, lines;
  Vec3 line_sum;
  std::set<uint32_t> colours;
};

Drawn drawn(void (*draw_it)(const World *), const World &world, double side) {
  picture_begin();
  float matrix[16];
  projection_ortho(-side, side, -side, side, side, -side, matrix);
  glMatrixMode(GL_PROJECTION);
  glLoadMatrixf(matrix);
  glMatrixMode(GL_MODELVIEW);
  std::vector<float> buffer(1 << 22);
  glFeedbackBuffer(1 << 22, GL_3D_COLOR, buffer.data());
  glRenderMode(GL_FEEDBACK);
  draw_it(&world);
  const float *const end = buffer.data() + glRenderMode(GL_RENDER);
  EXPECT_GE(end, buffer.data());
  Drawn all = {};
  for (const float *at = buffer.data(); at < end;) {
    const bool polygon = *at++ == GL_POLYGON_TOKEN;
    (polygon ? all.quads : all.lines)++;
    for (int n = polygon ? static_cast<int>(*at++) : 2; n > 0; n--, at += 7) {
      const Vec3 place = {at[0] / 320.0 - 1, at[1] / 240.0 - 1, at[2] * 2.0 - 1};
      if (!polygon) all.line_sum = all.line_sum + place * side;
      all.colours.insert(rgb_colour(at[3], at[4], at[5]));
    }
  }
  return all;
}

void one_quad(const World *world) {
  glBegin(GL_QUADS);
  billboard_disc({1, 2, 3}, 1, 0, world->camera);
  glEnd();
}

void expect_drawn(const Drawn &all, const Due &due, const World &world, double side) {
  EXPECT_EQ(all.quads, static_cast<int>(due.patches.size()) * drawn(one_quad, world, side).quads);
  EXPECT_EQ(all.lines, due.lines);
  EXPECT_LT(length(all.line_sum - due.line_sum), 2e-7 * side * all.lines + 1e-9);
}

TEST(FixedPlot, EdgesAreDrawnOnceAsTheDistanceOfTheirLesserEndSays) {
  plot_fixed = 1;
  for (uint32_t seed = 0; seed < 20; seed++) {
    rand_seed(977 * seed);
    Maze *root = Maze_choose(static_cast<int32_t>(seed % 6));
    World world = world_from_above(root, World_first_place(root));
    for (const double beside : {20.0, 70.0, 100.0}) {
      Maze_translate(root, Vec3{} - Pos_position(world.cur), 1);
      world.camera = {0, 0.6 * beside, 0.8 * beside}; // at exactly 100 it's far
      Due due = {};
      collect(root, world, nullptr, &due);
      expect_drawn(drawn(plot_world, world, 2000), due, world, 2000);
    }
    EXPECT_EQ(root->attachments.count, 0u);
    Maze_destroy(root, 1);
  }
  plot_fixed = 0;
}

// Mazes alone with some edges cut, and levels of trees.
TEST(ConnectedArea, ShowsAllThatCanBeReachedOnTheLevelAndNothingElse) {
  for (uint32_t seed = 0; seed < 20; seed++) {
    rand_seed(977 * seed);
    Maze *root = Maze_choose(seed == 0);
    Vec3 low, high;
    Maze_bounds(root, &low, &high);
    Maze_scale(root, 80 / length(high - low), 1);
    World world = world_from_above(root, World_first_place(root));
    bool alone = true;
    for (int32_t i = 0; i < maze_count(root); i++) {
      Maze *below = maze_nodes(root)[i].submaze;
      alone = alone && !below;
      if (!below == (seed % 2 == 0)) world.cur = below ? World_first_place(below) : Pos{root, i};
    }
    Maze *maze = world.cur.maze;
    for (int cuts = alone ? 5 : 0; cuts > 0; cuts--) {
      const int32_t i = rand_int(maze_count(maze));
      if (maze_nodes(maze)[i].degree > 0) Maze_cut(maze, i, maze_nodes(maze)[i].nbr[0]);
    }
    uint8_t *reached = Maze_reach(maze, world.cur.node);
    for (const double beside : {10.0, 1000.0}) {
      world.camera = Pos_position(world.cur) + Vec3{0, 0, beside};
      Due due = {};
      collect(maze, world, reached, &due);
      const Drawn all = drawn(connected_area_overlay, world, 100);
      expect_drawn(all, due, world, 100);
      for (const uint32_t colour : all.colours)
        EXPECT_TRUE(colour == 0x4040FF || colour == 0x0000BF) << std::hex << colour;
    }
    EXPECT_EQ(maze->attachments.count, 0u);
    std::free(reached);
    Maze_destroy(root, 1);
  }
}

// A room of one edge from (0, 0) to (12, 0) in the second of two nodes.
struct Room {
  Maze *root = scenario_path(2);
  Maze *room = scenario_path(2);
  World world;
  Room() {
    scenario_hold(root, 1, room);
    maze_nodes(root)[0].x = -12;
    Maze_scale(room, 12, 0);
    world = world_from_above(root, {room, 0});
  }
  ~Room() { Maze_destroy(root, 1); }
};

TEST(ConnectedArea, IsMixedWithThePictureAndLetsVisitsAndBordersShow) {
  for (const auto &[bordermask, age, colour] :
       {std::tuple{0u, -1.0, 0x0000FFu}, {1u, -1.0, 0x408040u}, {0u, 10.0, 0x6F4BFFu}}) {
    Room r;
    r.room->bordermask = bordermask;
    if (age > 0) Maze_mark_usertime(r.room, 0, 1, r.world.time - age);
    picture_begin();
    glClearColor(0.25F, 0.5F, 0.75F, 0);
    glClear(GL_COLOR_BUFFER_BIT);
    glClearColor(0, 0, 0, 0);
    World_apply_view(&r.world);
    connected_area_overlay(&r.world);
    const Picture picture = picture_take();
    for (const auto &[y, by] : {std::pair{-0.4, 64}, {0.0, -64}, {0.4, 64}}) {
      const uint32_t c = lit(colour, by);
      const auto mixed = [](uint8_t s, double d) { return s / 255.0 + d * (1 - s / 255.0); };
      EXPECT_LE(colour_distance(picture_colour(picture, pixel_x(4), pixel_y(y)),
                                rgb_colour(mixed(colour_red(c), 0.25), mixed(colour_green(c), 0.5),
                                           mixed(colour_blue(c), 0.75))),
                2);
    }
  }
}

TEST(FixedPlot, FarLinesAreTheOnlySmoothThing) {
  Room r;
  Maze_rotate(r.room, {0, 0, 0.5}, 0);
  plot_fixed = 1;
  for (const double height : {16.0, 150.0}) {
    r.world.camera.z = height;
    const Picture smooth = draw(r.world);
    plot_smooth_lines = 0;
    const Picture hard = draw(r.world);
    plot_smooth_lines = 1;
    EXPECT_EQ(smooth.bgra == hard.bgra, height < 100);
    double lines = 0; // pixels' worth of the light in them
    for (size_t i = 0; height > 100 && i < hard.bgra.size(); i += 4) {
      EXPECT_TRUE(hard.bgra[i] == 0 || hard.bgra[i] == 0xC0);
      lines += smooth.bgra[i] / 192.0;
    }
    EXPECT_NEAR(lines, height > 100 ? 1.5 * 24 * 320 / 150 : 0, 2); // of a width of 1.5
  }
  plot_fixed = 0;
}

// The labels of the root and of the room hang down from 3 above their tops.
TEST(FixedPlot, EveryNamedMazeIsLabelledAndOtherPlotsIgnoreTheKey) {
  fonts_for_test();
  Room r;
  r.root->name = strdup("1.01");
  r.room->name = strdup("1.01.03");
  constexpr int views[][5] = {{0, 0, 0, 1, 0}, {0, 1, 0, 1, 1}, {0, 0, 1, 1, 1}, {0, 1, 1, 1, 1},
                              {1, 1, 0, 0, 0}, {2, 1, 0, 0, 0}, {1, 0, 1, 0, 1}, {2, 0, 1, 0, 1}};
  for (const auto &[type, fixed, connected, root, room] : views) {
    plot_type = type;
    plot_fixed = fixed;
    plot_connected = connected;
    const Picture picture = draw(r.world);
    const auto labelled = [&](double left) {
      for (int y = pixel_y(3); y < pixel_y(1.2); y++)
        for (int x = pixel_x(left); x < pixel_x(left + 8); x++)
          if (picture_colour(picture, x, y) != 0) return 1;
      return 0;
    };
    EXPECT_TRUE(labelled(-12) == root && labelled(0) == room)
        << type << " " << fixed << " " << connected;
  }
  plot_type = plot_fixed = plot_connected = 0;
}

// The overlays stand on each plot, and leave the state as it was; J acts on the line plot alone.
TEST(Plot, OverlaysStandOnEveryPlot) {
  fonts_for_test();
  Room r;
  plot_smooth_lines = 0;
  for (const auto &[type, voronoi] : {std::pair{0, 0}, {1, 0}, {2, 0}, {0, 1}}) {
    plot_type = type;
    plot_voronoi = voronoi;
    const Picture alone = draw(r.world);
    for (int32_t *overlay : {&plot_connected, &plot_grid}) {
      *overlay = 1;
      EXPECT_NE(draw(r.world).bgra, alone.bgra) << type << " " << voronoi;
      EXPECT_EQ(glIsEnabled(GL_BLEND), GL_FALSE);
      GLboolean depth_writes = GL_FALSE;
      glGetBooleanv(GL_DEPTH_WRITEMASK, &depth_writes);
      EXPECT_EQ(depth_writes, GL_TRUE);
      *overlay = 0;
    }
    plot_fixed = 1;
    EXPECT_EQ(draw(r.world).bgra == alone.bgra, type != 0 || voronoi != 0);
    plot_fixed = 0;
  }
  plot_type = plot_voronoi = 0;
  plot_smooth_lines = 1;
}

} // namespace
