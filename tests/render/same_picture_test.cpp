// The plots against their literal telling: every byte of colour and depth, in both depth slabs.

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
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
#include "plot_literal.h"
#include "render/apply_view.h"
#include "render/line_lists.h"
#include "render/plot.h"
#include "scenarios.h"
#include "support/random.h"
#include "town.h"

namespace {

constexpr int32_t width = 320, height = 240;

// Colour and depth, lowest row first.
struct Bytes {
  std::vector<uint32_t> colour;
  std::vector<float> depth;
};

struct Slabs {
  Bytes far, near;
};

Bytes take() {
  const size_t size = size_t{width} * height;
  Bytes bytes = {std::vector<uint32_t>(size), std::vector<float>(size)};
  glReadPixels(0, 0, width, height, GL_BGRA, GL_UNSIGNED_BYTE, bytes.colour.data());
  glReadPixels(0, 0, width, height, GL_DEPTH_COMPONENT, GL_FLOAT, bytes.depth.data());
  return bytes;
}

// Of the eye that is drawn for, in world units; its picture is off its axis by a share of that.
double eye_offset = 0;

Slabs draw_slabs(const World *world, PlotDraw draw) {
  Slabs slabs;
  picture_begin();
  gfx_resize(width, height);
  float projection[16];
  projection_perspective(screen_width, screen_height, projection);
  projection[8] = static_cast<float>(0.2 * eye_offset);
  glMatrixMode(GL_PROJECTION);
  glLoadMatrixf(projection);
  glMatrixMode(GL_MODELVIEW);
  glTranslated(eye_offset, 0, 0);
  World_apply_view(world);
  plot_slab(world, draw, projection_far_slab);
  slabs.far = take();
  plot_slab(world, draw, projection_near_slab);
  slabs.near = take();
  return slabs;
}

template <typename Value> bool same(const std::vector<Value> &a, const std::vector<Value> &b) {
  return std::memcmp(a.data(), b.data(), a.size() * sizeof(Value)) == 0;
}

bool same(const Bytes &a, const Bytes &b) {
  return same(a.colour, b.colour) && same(a.depth, b.depth);
}

bool same(const Slabs &a, const Slabs &b) {
  return same(a.far, b.far) && same(a.near, b.near);
}

// Something other than the background is to be seen.
bool shows(const Bytes &bytes) {
  static const std::vector<float> nothing(size_t{width} * height, 1.0F);
  return !same(bytes.depth, nothing);
}

double between(double low, double high) {
  return low + rand_real(high - low);
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

// Of what lies outside, the fixed plot knows what the line plot last knew.
struct Plot {
  const char *name;
  PlotDraw ours, literal;
  int32_t mode; // of the landscape
};

constexpr Plot plots[] = {{"lines", own_line_plot, literal_line_plot, 5},
                          {"balls", own_ballstick_plot, literal_ballstick_plot, 5},
                          {"plates", own_gantry_plot, literal_gantry_plot, 5},
                          {"outlines", own_voronoi_plot, literal_voronoi_plot, 0},
                          {"rooms", own_voronoi_plot, literal_voronoi_plot, 2},
                          {"ground", own_voronoi_plot, literal_voronoi_plot, 5},
                          {"processor", own_fixed_plot, literal_fixed_plot, 5},
                          {"walls", own_voronoi_plot, literal_voronoi_plot, 1},
                          {"terrain", own_voronoi_plot, literal_voronoi_plot, 3},
                          {"triangles", own_voronoi_plot, literal_voronoi_plot, 4}};

TEST(SamePicture, FromAnywhereWhileWalkingAndRelaxing) {
  rand_seed(77);
  World world = {};
  world.showtrail = 1;
  world.root = town(5, 8.0, 2);
  for (const Plot &plot : plots) {
    int far_shown = 0;
    voronoi_mode = plot.mode;
    Attachment_drop_tree(world.root, "voronoilist");
    for (int pose = 0; pose < 8; pose++) {
      if (pose % 2 == 0) line_lists(world.root, 1);
      look_somewhere(&world);
      eye_offset = pose % 3 - 1;
      town_walk(&world, rand_int(4));
      if (pose % 4 == 3) smooth(world.cur.maze);
      literal_follow_drops(world.root);
      const Slabs slabs = draw_slabs(&world, plot.ours);
      far_shown += shows(slabs.far);
      EXPECT_TRUE(same(slabs, draw_slabs(&world, plot.literal))) << plot.name << " pose " << pose;
    }
    eye_offset = 0;
    EXPECT_GT(far_shown, 0) << plot.name;
    EXPECT_LT(far_shown, 8) << plot.name;
  }
  voronoi_mode = 5;
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
    literal_drop_tree(root);
    line_lists(root, 1);
  }
};

void compare_across_planes(const Plot &plot) {
  Straddler scene;
  scene.root->halfwidth = 0.2;
  int shown = 0, poses = 0;
  const auto compare = [&](Vec3 p, Vec3 outward, double halfwidth) {
    scene.place(p, outward, halfwidth);
    const Slabs slabs = draw_slabs(&scene.world, plot.ours);
    EXPECT_TRUE(same(slabs, draw_slabs(&scene.world, plot.literal)))
        << p.x << " " << p.y << " " << p.z << " " << halfwidth;
    shown += shows(slabs.near) || shows(slabs.far);
    poses++;
  };
  for (const double depth : {3.0, 90.0, 900.0, 9000.0}) {
    for (const double halfwidth : {0.05, 0.9}) {
      const double reach = std::sqrt(2.0) * (0.9 + 0.005 * depth);
      for (double offset = -1.3; offset <= 1.3; offset += 0.325) {
        const double side = depth + offset * reach; // 90 degrees across at 4:3
        const double top = depth * 0.75 + offset * reach;
        compare({side, 0, -depth}, {1, 0, 0}, halfwidth);
        compare({-side, 0, -depth}, {-1, 0, 0}, halfwidth);
        compare({0, top, -depth}, {0, 1, 0}, halfwidth);
        compare({0, -top, -depth}, {0, -1, 0}, halfwidth);
      }
    }
  }
  EXPECT_GT(shown, poses / 8);
  EXPECT_LT(shown, poses);
  // In the picture's corners bodies that face the eye lie aslant to the planes of depth.
  for (const double plane : {0.1, 1000.0, 1001.5}) {
    for (double offset = -1.0; offset <= 1.0; offset += 0.125) {
      const double z = plane * (1 + 0.008 * offset);
      compare({0.93 * z, 0.68 * z, -z}, {1, 0, 0}, 0.01);
      compare({0.2, 0, -z}, {1, 0, 0}, 0.05);
    }
  }
}

TEST(SamePicture, OfARoomAcrossEachPlaneOfTheFrustum) {
  for (const Plot &plot : {plots[0], plots[1], plots[2], plots[6]}) {
    SCOPED_TRACE(plot.name);
    compare_across_planes(plot);
  }
}

// The rules of a moved room leave its parent's attachments, whose way into the room then leads
// elsewhere for a plot that goes by the places of the moment.
TEST(SamePicture, OfAWayIntoARoomThatMoved) {
  Straddler scene;
  scene.world.camera = {0, 0, 10};
  scene.place({50, 0, 0}, {1, 0, 0}, 0.5); // all out at the right
  scene.put(&maze_nodes(scene.room)[0], {-50, 0, 0});
  scene.put(&maze_nodes(scene.room)[1], {-51, 0, 0});
  Attachment_drop_tree(scene.room, "lists");
  const Slabs slabs = draw_slabs(&scene.world, plots[6].ours);
  EXPECT_TRUE(shows(slabs.near) && same(slabs, draw_slabs(&scene.world, plots[6].literal)));
}

// Quads of bodies close to the eye reach through planes of depth that the bodies don't meet.
TEST(SamePicture, OfARoomRightBeforeTheEye) {
  rand_seed(12);
  Straddler scene;
  int shown = 0;
  for (int pose = 0; pose < 60; pose++) {
    const double near = between(0.02, 0.16);
    const Vec3 p = {between(-near, near), between(-near, near), -near};
    const Vec3 way = {between(-0.1, 0.1), between(-0.1, 0.1), between(0, 0.1)};
    scene.root->halfwidth = 0.001;
    scene.place(p, {1, 0, 0}, between(0.1, 0.8) * near, way);
    for (const Plot &plot : {plots[0], plots[1], plots[6]}) {
      const Slabs slabs = draw_slabs(&scene.world, plot.ours);
      shown += shows(slabs.near);
      EXPECT_TRUE(same(slabs, draw_slabs(&scene.world, plot.literal))) << plot.name << pose;
    }
  }
  EXPECT_GT(shown, 20);
}

// What lies in the depth of a tree has moved out of what its parents' bounds were.
TEST(SamePicture, OfATreeOfWhichAPartWasLookedAtAlone) {
  Straddler scene;
  Maze *inner = scenario_path(2);
  scenario_hold(scene.room, 1, inner);
  scene.world.camera = {0, 0, 10};
  scene.put(&maze_nodes(inner)[0], {60, 0, 0});
  scene.put(&maze_nodes(inner)[1], {61, 0, 0});
  scene.place({50, 0, 0}, {1, 0, 0}, 0.5);
  draw_slabs(&scene.world, own_line_plot);
  draw_slabs(&scene.world, literal_line_plot);
  scene.put(&maze_nodes(inner)[1], {0, 0, 0});
  Attachment_drop_tree(inner, "lists");
  literal_follow_drops(scene.root);
  line_lists(scene.room, 1);
  const Slabs slabs = draw_slabs(&scene.world, own_line_plot);
  EXPECT_TRUE(shows(slabs.near) && same(slabs, draw_slabs(&scene.world, literal_line_plot)));
}

int lists_in_use() {
  int count = 0;
  for (GLuint name = 1; name < 400000; name++)
    count += glIsList(name);
  return count;
}

// A plot compiles nothing before it can be seen, and then what the mazes were when it first ran:
// what moves a room leaves its parent's lists alone, with the ways to where its doors were.
TEST(SamePicture, OfWhatWasThereWhenNothingWasSeen) {
  rand_seed(8);
  World world = {};
  world.root = town(3, 6.0, 1);
  Pos door = town_place(world.root);
  while (door.maze == world.root)
    door = town_place(world.root);
  for (const Plot &plot : plots) {
    if (plot.ours == own_fixed_plot) continue;
    SCOPED_TRACE(plot.name);
    voronoi_mode = plot.mode;
    town_look(&world, door, 15, 0.3, -0.4);
    world.camera.x += 5000;
    draw_slabs(&world, plot.ours); // what is made once
    drop_all(world.root);
    literal_drop_tree(world.root);
    const int before = lists_in_use();
    draw_slabs(&world, plot.ours);
    EXPECT_LE(lists_in_use(), before); // those of a mode before may go
    draw_slabs(&world, plot.literal);
    for (int32_t i = maze_count(world.root); i-- > 0;)
      maze_nodes(world.root)[i].self.colour ^= 0x404040;
    smooth(door.maze);
    literal_follow_drops(world.root);
    town_look(&world, door, 15, 0.3, -0.4);
    const int unseen = lists_in_use();
    const Slabs slabs = draw_slabs(&world, plot.ours);
    EXPECT_GT(lists_in_use(), unseen);
    EXPECT_TRUE(same(slabs, draw_slabs(&world, plot.literal)));
    drop_all(world.root);
    EXPECT_FALSE(same(slabs, draw_slabs(&world, plot.ours)));
  }
  voronoi_mode = 5;
  Maze_destroy(world.root, 1);
}

// The marker comes right after its own level. A room's floor at its height hides it, and it is seen
// where all of its level lies behind the eye.
TEST(SamePicture, OfTheMarkerBetweenTheLevelsOfALandscape) {
  constexpr size_t middle = size_t{width} * (height / 2) + width / 2;
  Straddler scene;
  scene.place({-0.5, 0, 0.3}, {0, -1, 0}, 0.5, {1, 0, 0});
  scene.put(&maze_nodes(scene.root)[0], {0, 0, 0});
  scene.world.camera = {0, 0, 10};
  for (const uint32_t expected : {0x808080U, 0xFFFFFFU}) {
    voronoi_mode = expected == 0xFFFFFF ? 0 : 1;
    const Slabs slabs = draw_slabs(&scene.world, own_voronoi_plot);
    EXPECT_TRUE(same(slabs, draw_slabs(&scene.world, literal_voronoi_plot)));
    EXPECT_EQ(slabs.near.colour[middle] & 0xFFFFFF, expected);
    scene.world.cur = {scene.room, 0};
    scene.world.camera = {-0.5, 0, 0.15};
    drop_all(scene.root);
    literal_drop_tree(scene.root);
  }
  voronoi_mode = 5;
}

// Through a door and back: drops what all plots keep of two mazes, whose colours change only the
// first time.
TEST(SamePicture, OfEachPlotAfterCrossings) {
  rand_seed(31);
  World world = {};
  world.showtrail = 1;
  world.root = town(4, 6.0, 1);
  Pos from = Pos_null, to = Pos_null;
  for (int crossing = 0; crossing < 8; crossing++) {
    std::swap(from, to);
    while (crossing % 4 == 0 && to.maze == from.maze) {
      Pos ways[pos_max_edges];
      from = town_place(world.root);
      to = ways[Pos_alledges(from.maze, from.node, ways, nullptr) - 1];
    }
    Pos_mark_usertime(from.maze, from.node, to.maze, to.node, world.time += 1);
    town_look(&world, to, 9, 0.4, -0.5);
    literal_follow_drops(world.root);
    for (const Plot &plot : {plots[0], plots[1], plots[2], plots[5]}) {
      const Slabs slabs = draw_slabs(&world, plot.ours);
      EXPECT_TRUE(shows(slabs.near) && same(slabs, draw_slabs(&world, plot.literal)))
          << plot.name << " crossing " << crossing;
    }
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
  } rows[] = {
      {plots[0], "3------"}, {plots[1], "-22----"}, {plots[2], "---20--"}, {plots[5], "-----20"}};
  for (const auto &[plot, made] : rows) {
    const ThreeLevels t = scenario_three_levels();
    World world = {};
    world.view = mat3_identity;
    world.root = t.root;
    world.cur = {t.root, 0};
    world.camera.z = 9;
    draw_slabs(&world, plot.ours);
    const auto values = [&] {
      std::vector<intptr_t> all;
      for (const Maze *maze : {t.n2, t.root, t.m1, t.m2})
        for (const char *name : names)
          all.push_back(Attachment_find(maze, name));
      return all;
    };
    const std::vector<intptr_t> first = values();
    draw_slabs(&world, plot.ours);
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
    draw_slabs(&world, plot.ours);
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
    literal_follow_drops(world.root);
    const Slabs slabs = draw_slabs(&world, own_line_plot);
    EXPECT_TRUE(same(slabs, draw_slabs(&world, literal_line_plot))) << "change " << change;
    if (change == 5) in_use = lists_in_use(); // those that other tests left behind are gone
    if (change > 5 && change < 19) {
      EXPECT_EQ(lists_in_use(), in_use);
    }
  }
  Maze_destroy(more, 1);
  Maze_destroy(world.root, 1);
}

} // namespace
