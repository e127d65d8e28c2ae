// Pictures drawn from what is kept and without what can't be seen, against those of the same code
// that draws everything, and for the first time: every byte of colour and depth, in both slabs.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include "generate/carve.h"
#include "generate/flat.h"
#include "generate/relax.h"
#include "gfx/gl.h"
#include "gfx/projection.h"
#include "gfx/window.h"
#include "maze/attachment.h"
#include "maze/edit.h"
#include "maze/pos.h"
#include "maze/visit.h"
#include "picture.h"
#include "render/apply_view.h"
#include "render/line_lists.h"
#include "render/plot.h"
#include "scenarios.h"
#include "support/random.h"
#include "town.h"

namespace {

constexpr int32_t width = 320, height = 240;

// Colours and depths, lowest row first, of the far slab and of the near one over it.
struct Slabs {
  std::vector<uint32_t> colour[2];
  std::vector<float> depth[2];
};

struct Plot {
  const char *name;
  int32_t type, fixed;
  int32_t mode = -1; // of the landscape
};

constexpr Plot lines = {"lines", 0, 0}, fixed_lines = {"fixed", 0, 1}, gantry = {"gantry", 1, 0},
               balls = {"balls", 2, 0}, ground = {"ground", 0, 0, 5};
constexpr Plot plots[] = {lines,
                          gantry,
                          balls,
                          ground,
                          fixed_lines,
                          {"outlines", 0, 0, 0},
                          {"rooms", 0, 0, 1},
                          {"lit rooms", 0, 0, 2},
                          {"terrain", 0, 0, 3},
                          {"triangles", 0, 0, 4}};

// Of the eye that is drawn for, in world units; its picture is off its axis by a share of that.
double eye_offset = 0;

Slabs draw(const World &world, const Plot &plot) {
  plot_type = plot.type;
  plot_fixed = plot.fixed;
  plot_voronoi = plot.mode >= 0;
  voronoi_mode = plot.mode >= 0 ? plot.mode : 5;
  picture_begin();
  gfx_resize(width, height);
  float projection[16];
  projection_perspective(width, height, projection);
  projection[8] = static_cast<float>(0.2 * eye_offset);
  glTranslated(eye_offset, 0, 0);
  World_apply_view(&world);
  Slabs slabs;
  for (int k = 0; k < 2; k++) {
    (k == 0 ? projection_far_slab : projection_near_slab)(projection);
    glMatrixMode(GL_PROJECTION);
    glLoadMatrixf(projection);
    glMatrixMode(GL_MODELVIEW);
    glClear(GL_DEPTH_BUFFER_BIT);
    plot_world(&world);
    slabs.colour[k].resize(size_t{width} * height);
    slabs.depth[k].resize(size_t{width} * height);
    glReadPixels(0, 0, width, height, GL_BGRA, GL_UNSIGNED_BYTE, slabs.colour[k].data());
    glReadPixels(0, 0, width, height, GL_DEPTH_COMPONENT, GL_FLOAT, slabs.depth[k].data());
  }
  plot_type = plot_fixed = plot_voronoi = 0;
  voronoi_mode = 5;
  return slabs;
}

// With nothing left out.
Slabs draw_all(const World &world, const Plot &plot) {
  sight_excludes_nothing = true;
  Slabs slabs = draw(world, plot);
  sight_excludes_nothing = false;
  return slabs;
}

Maze *in_copy(const Maze *maze, Maze *copy) {
  if (maze->parent == nullptr) return copy;
  return maze_nodes(in_copy(maze->parent, copy))[maze->parentnode].submaze;
}

// With nothing left out, of a tree that has never been drawn. It must be ordered like its copy, so
// one that has rooms must itself be a copy.
Slabs draw_fresh(const World &world, const Plot &plot) {
  World fresh = world;
  fresh.root = Maze_copy(world.root, 1);
  fresh.cur.maze = in_copy(world.cur.maze, fresh.root);
  Slabs slabs = draw_all(fresh, plot);
  Maze_destroy(fresh.root, 1);
  return slabs;
}

bool same(const Slabs &a, const Slabs &b) {
  for (int k = 0; k < 2; k++)
    if (a.colour[k] != b.colour[k] || a.depth[k] != b.depth[k]) return false;
  return true;
}

// Something other than the background is to be seen in a slab, 0 for the far one.
bool shows(const Slabs &slabs, int slab) {
  return std::count(slabs.depth[slab].begin(), slabs.depth[slab].end(), 1.0F) != width * height;
}

double between(double low, double high) {
  return low + rand_real(high - low);
}

// Without ages, which landscapes keep as they were.
World town_world(int32_t side, double room, int32_t passes) {
  World world = {};
  Maze *built = town(side, room, passes);
  world.root = Maze_copy(built, 1);
  Maze_destroy(built, 1);
  return world;
}

// Somewhere in the tree, from near or from very far, at times level with the plane and at others
// with the axis of some edge right through the eye.
void look_somewhere(World *world) {
  const Pos cur = town_place(world->root);
  const double zoom = std::pow(10.0, between(0, 4));
  const double yaw = rand_int(4) == 0 ? 0 : between(-4, 4);
  const double pitch = rand_int(4) == 0 ? -std::acos(0.0) : between(-3, 0);
  town_look(world, cur, zoom, yaw, pitch);
  world->time += 10;
}

void drop_all(Maze *maze) {
  for (const char *name : {"lists", "ballstick_ballslist", "ballstick_stickslist", "voronoi",
                           "voronoilist", "gantrylist", "EdgeAngleRecs"})
    Attachment_drop_tree(maze, name);
}

// What a held key does to the places of nodes.
void smooth(Maze *maze) {
  Maze_smooth(maze, 0.3);
  drop_all(maze);
}

// From one level to another.
void cross_a_door(World *world) {
  Pos from, ways[pos_max_edges], to;
  do {
    from = town_place(world->root);
    to = ways[Pos_alledges(from.maze, from.node, ways, nullptr) - 1];
  } while (to.maze == from.maze);
  Pos_mark_usertime(from.maze, from.node, to.maze, to.node, world->time += 1);
  world->cur = to;
}

// The fixed plot leaves out what was outside when the line plot last ran, so that runs after a
// relaxation.
TEST(SamePicture, FromAnywhereWhileWalkingAndRelaxing) {
  rand_seed(77);
  World world = town_world(5, 8.0, 2);
  int far_shown = 0;
  for (const Plot &plot : plots) {
    world.showtrail = plot.fixed;
    Attachment_drop_tree(world.root, "voronoilist");
    for (int pose = 0; pose < 6; pose++) {
      if (pose % 2 == 0) line_lists(world.root, 1);
      look_somewhere(&world);
      eye_offset = pose % 3 - 1;
      if (pose % 4 == 1) cross_a_door(&world);
      town_walk(&world, rand_int(4));
      if (pose % 4 == 3) smooth(world.root);
      if (pose % 4 == 3 && plot.fixed) line_lists(world.root, 1);
      const Slabs slabs = draw(world, plot);
      far_shown += shows(slabs, 0);
      EXPECT_TRUE(same(slabs, draw_fresh(world, plot))) << plot.name << " pose " << pose;
    }
  }
  eye_offset = 0;
  EXPECT_GT(far_shown, 10);
  EXPECT_LT(far_shown, 50);
  Maze_destroy(world.root, 1);
}

// A room of two nodes beside, before or behind what is seen, at all offsets from one plane at which
// its bodies reach through it or no longer do. The wide discs of its far nodes come from the
// distance alone.
struct Straddler {
  Maze *root = scenario_path(2);
  Maze *room = scenario_path(2);
  World world = {};
  Straddler() {
    world.root = root;
    world.view = mat3_identity;
    scenario_hold(root, 1, room);
  }
  ~Straddler() { Maze_destroy(root, 1); }
  static void put(MazeNode *node, Vec3 p) {
    node->x = p.x;
    node->y = p.y;
    node->z = p.z;
  }
  // The room's nodes stand side by side; the way to them comes from outside the picture.
  void place(Vec3 p, Vec3 outward, double halfwidth, Vec3 way = {0.1, 0, 0}) {
    put(&maze_nodes(root)[0], p + outward * (10 + length(p)));
    put(&maze_nodes(room)[0], p);
    put(&maze_nodes(room)[1], p + way);
    room->halfwidth = halfwidth;
    world.cur = {root, 0};
    drop_all(root);
    line_lists(root, 1);
  }
};

// At planes of the sides, of depth and right before the eye. In the picture's corners bodies that
// face the eye lie aslant to the planes of depth.
void place_across_a_plane(Straddler *scene) {
  const double depth = std::pow(10.0, between(0.5, 4)), along = between(-1.3, 1.3);
  const double side = depth + along * std::sqrt(2.0) * (0.9 + 0.005 * depth);
  const double halfwidth = rand_int(2) == 0 ? 0.05 : 0.9;
  constexpr double planes[] = {0.1, 1000.0, 1001.5};
  const double z = planes[rand_int(3)] * (1 + 0.008 * along), near = between(0.02, 0.16);
  scene->root->halfwidth = 0.2;
  switch (rand_int(5)) {
  case 0:
    return scene->place({side, 0, -depth}, {1, 0, 0}, halfwidth);
  case 1:
    return scene->place({-side, 0, -depth}, {-1, 0, 0}, halfwidth);
  case 2:
    return scene->place({0, side - 0.25 * depth, -depth}, {0, 1, 0}, halfwidth);
  case 3:
    return scene->place({0.93 * z, 0.68 * z, -z}, {1, 0, 0}, 0.01);
  default:
    break;
  }
  scene->root->halfwidth = 0.001;
  const Vec3 p = {between(-near, near), between(-near, near), -near};
  scene->place(p, {1, 0, 0}, between(0.1, 0.8) * near,
               {between(-0.1, 0.1), between(-0.1, 0.1), between(0, 0.1)});
}

TEST(SamePicture, OfARoomAcrossEachPlaneOfTheFrustum) {
  rand_seed(12);
  Straddler scene;
  int shown = 0;
  for (int pose = 0; pose < 300; pose++) {
    place_across_a_plane(&scene);
    for (const Plot &plot : {lines, gantry, balls, fixed_lines}) {
      const Slabs slabs = draw(scene.world, plot);
      shown += shows(slabs, 0) || shows(slabs, 1);
      EXPECT_TRUE(same(slabs, draw_all(scene.world, plot))) << plot.name << pose;
    }
  }
  EXPECT_GT(shown, 200);
  EXPECT_LT(shown, 1000);
}

// What only some attachments know: a moved room whose parent's stay, with a way that leads into it,
// and, below a room that was looked at alone, one that moved out of what its parents' bounds were.
TEST(SamePicture, OfRoomsThatMoved) {
  Straddler scene;
  scene.world.camera = {0, 0, 10};
  scene.place({50, 0, 0}, {1, 0, 0}, 0.5); // all out at the right
  scene.put(&maze_nodes(scene.room)[0], {-50, 0, 0});
  scene.put(&maze_nodes(scene.room)[1], {-51, 0, 0});
  Attachment_drop_tree(scene.room, "lists");
  const Slabs way = draw(scene.world, fixed_lines);
  EXPECT_TRUE(shows(way, 1) && same(way, draw_all(scene.world, fixed_lines)));
  Maze *inner = scenario_path(2);
  scenario_hold(scene.room, 1, inner);
  scene.put(&maze_nodes(inner)[0], {60, 0, 0});
  scene.put(&maze_nodes(inner)[1], {61, 0, 0});
  scene.place({50, 0, 0}, {1, 0, 0}, 0.5);
  draw(scene.world, lines);
  scene.put(&maze_nodes(inner)[1], {0, 0, 0});
  Attachment_drop_tree(inner, "lists");
  line_lists(scene.room, 1);
  const Slabs deep = draw(scene.world, lines);
  EXPECT_TRUE(shows(deep, 1) && same(deep, draw_all(scene.world, lines)));
}

// The marker is seen where all of its level lies behind the eye.
TEST(SamePicture, OfTheMarkerAlone) {
  Straddler scene;
  scene.place({-0.5, 0, 0.3}, {0, -1, 0}, 0.5, {1, 0, 0});
  scene.world.cur = {scene.room, 0};
  scene.world.camera = {-0.5, 0, 0.15};
  const Slabs slabs = draw(scene.world, {"outlines", 0, 0, 0});
  EXPECT_TRUE(same(slabs, draw_all(scene.world, {"outlines", 0, 0, 0})));
  EXPECT_EQ(slabs.colour[1][size_t{width} * (height / 2) + width / 2] & 0xFFFFFF, 0xFFFFFFU);
}

int lists_in_use() {
  int count = 0;
  for (GLuint name = 1; name < 400000; name++)
    count += glIsList(name);
  return count;
}

// A plot compiles nothing before it can be seen, and then what the mazes were when it first ran.
TEST(SamePicture, OfWhatWasThereWhenNothingWasSeen) {
  rand_seed(8);
  World world = town_world(3, 6.0, 1);
  const Pos door = town_place(world.root);
  for (const Plot &plot : plots) {
    if (plot.fixed) continue;
    SCOPED_TRACE(plot.name);
    town_look(&world, door, 15, 0.3, -0.4);
    const Slabs before = draw_fresh(world, plot);
    world.camera.x += 5000;
    drop_all(world.root);
    const int unseen = lists_in_use();
    draw(world, plot);
    EXPECT_LE(lists_in_use(), unseen); // those of a plot before may go
    for (int32_t i = maze_count(world.root); i-- > 0;)
      maze_nodes(world.root)[i].self.colour ^= 0x404040;
    town_look(&world, door, 15, 0.3, -0.4);
    const int seen = lists_in_use();
    EXPECT_TRUE(same(draw(world, plot), before));
    EXPECT_GT(lists_in_use(), seen);
    drop_all(world.root);
    EXPECT_FALSE(same(draw(world, plot), before));
  }
  Maze_destroy(world.root, 1);
}

// Each plot makes its own attachments, once. Lines go with each step, other lists with a step
// between levels, and what depends on places alone stays.
TEST(SamePicture, AttachmentsAreKeptUntilAStepChangesThem) {
  constexpr const char *names[] = {"lists",      "ballstick_ballslist", "ballstick_stickslist",
                                   "gantrylist", "EdgeAngleRecs",       "voronoilist",
                                   "voronoi"};
  const struct {
    Plot plot;
    const char *made; // a digit for each name: the steps of the two that drop it
  } rows[] = {{lines, "3------"}, {balls, "-22----"}, {gantry, "---20--"}, {ground, "-----20"}};
  for (const auto &[plot, made] : rows) {
    const ThreeLevels t = scenario_three_levels();
    World world = {};
    world.view = mat3_identity;
    world.root = t.root;
    world.cur = {t.root, 0};
    world.camera.z = 9;
    draw(world, plot);
    const auto values = [&] {
      std::vector<intptr_t> all;
      for (const Maze *maze : {t.n2, t.root, t.m1, t.m2})
        for (const char *name : names)
          all.push_back(Attachment_find(maze, name));
      return all;
    };
    const std::vector<intptr_t> first = values();
    draw(world, plot);
    EXPECT_EQ(values(), first) << plot.name;
    Pos_mark_usertime(t.n2, 0, t.n2, 1, 1);
    Pos_mark_usertime(t.root, 0, t.m1, 0, 1);
    const std::vector<intptr_t> last = values();
    for (size_t i = 0; i < last.size(); i++) {
      const size_t maze = i / std::size(names); // one step in the first, one between the next two
      const char drops = made[i % std::size(names)];
      EXPECT_EQ(first[i] != 0, drops != '-') << plot.name << i;
      const bool dropped = maze == 0 ? drops == '3' : maze < 3 && drops >= '2';
      EXPECT_EQ(last[i], dropped ? 0 : first[i]) << plot.name << i;
    }
    draw(world, plot);
    const std::vector<intptr_t> again = values();
    for (size_t i = 0; i < again.size(); i++)
      EXPECT_TRUE(last[i] != 0 ? again[i] == last[i] : (again[i] != 0) == (first[i] != 0)) << i;
    Maze_destroy(t.root, 1);
  }
}

// Steps change few bodies of many; other changes move all of them, or add and remove some.
TEST(SamePicture, LinesOfALargeMazeAfterEachChange) {
  rand_seed(5);
  World world = {};
  world.root = Maze_plane_xy(24, 24);
  Maze_carve(world.root);
  town_look(&world, {world.root, 300}, 14, 0.3, -0.4);
  Maze *more = scenario_path(300);
  int in_use = 0;
  for (int change = 0; change < 24; change++) {
    town_walk(&world, 1 + change % 2);
    if (change % 6 == 3) maze_nodes(world.root)[rand_int(500)].self.colour = 0x40C0F0;
    if (change % 6 == 4) smooth(world.root);
    if (change % 6 == 5) world.root->halfwidth *= 0.8;
    if (change == 14) Maze_delete_node(world.root, world.cur.node == 7 ? 8 : 7);
    if (change == 19) Maze_append(world.root, more);
    if (change % 6 >= 2) Attachment_drop(world.root, "lists");
    const Slabs slabs = draw(world, lines);
    EXPECT_TRUE(same(slabs, draw_fresh(world, lines))) << "change " << change;
    if (change == 5) in_use = lists_in_use(); // those that other tests left behind are gone
    if (change > 5 && change < 19) {
      EXPECT_EQ(lists_in_use(), in_use);
    }
  }
  Maze_destroy(more, 1);
  Maze_destroy(world.root, 1);
}

} // namespace
