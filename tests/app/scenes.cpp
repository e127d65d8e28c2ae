#include "app/scenes.h"

#include <cmath>
#include <cstring>

#include "app/overlay.h"
#include "app/scene.h"
#include "generate/transform.h"
#include "gfx/gl.h"
#include "gfx/gl_util.h"
#include "gfx/window.h"
#include "maze/attachment.h"
#include "maze/edit.h"
#include "maze/pos.h"
#include "picture.h"
#include "render/apply_view.h"
#include "render/plot.h"
#include "scenarios.h"
#include "text/fonts.h"
#include "text/prepare.h"
#include "text/style.h"
#include "text/text.h"
#include "world/camera.h"

namespace {

// A tree, and those of its mazes in which a user may be.
struct Tree {
  Maze *root;
  Maze *levels[4];
  double time;
};

uint32_t tint(int32_t i) {
  const auto n = static_cast<uint32_t>(i);
  return 0x484038 + (n * 0x53 & 0x7F) + ((n * 0x35 & 0x7F) << 8) + ((n * 0x67 & 0x7F) << 16);
}

void set_edge(Maze *maze, int32_t i, uint32_t r, MazeEdge edge) {
  MazeNode &node = maze_nodes(maze)[i], &other = maze_nodes(maze)[node.nbr[r]];
  node.edge[r] = other.edge[MazeNode_row(other, i)] = edge;
}

constexpr double now = 4321.7;

// Moves nodes off their lattice, and gives colours to all and times to some.
void bend(Maze *maze, double by) {
  for (int32_t i = 0; i < maze_count(maze); i++) {
    MazeNode &node = maze_nodes(maze)[i];
    node.x += by * std::sin(1.7 * i + 1);
    node.y += by * std::sin(2.9 * i);
    node.z += 1.6 * by * std::sin(1.3 * i + 0.5);
    node.self = {tint(3 * i), i % 4 == 1 ? now - std::pow(7.3, i % 5) : never,
                 i % 5 == 2 ? now - 2.1 : never};
    for (uint32_t r = 0; r < node.degree; r++) {
      const int32_t k = i + node.nbr[r];
      if (node.nbr[r] < i) continue;
      set_edge(maze, i, r,
               {tint(5 * k), k % 3 == 1 ? now - std::pow(6.1, k % 5) : never,
                k % 4 == 3 ? now - 11.3 : never});
    }
  }
}

int32_t add_node(Maze *maze, Vec3 p) {
  MazeNode node = {};
  MazeNode_init(&node, p.x, p.y, p.z);
  return static_cast<int32_t>(GrowList_append(&maze->nodes, &node));
}

void hold(Maze *maze, int32_t node, Maze *room, double halfwidth, const char *name) {
  Maze_translate(room, node_position(maze_nodes(maze)[node]), 0);
  scenario_hold(maze, node, room);
  Maze_align_doors(room);
  room->halfwidth = halfwidth;
  room->name = strdup(name);
}

// Three levels, with edges that cross, steep ones, an upright one, and nodes that can't be
// reached. One of the rooms is older than what holds it.
Tree house() {
  Maze *old = scenario_grid(3, 3, 0.77, {}), *root = scenario_grid(4, 3, 3.1, {6.13, 3.79, 0.37});
  Maze *young = scenario_grid(3, 3, 0.77, {}), *inner = scenario_grid(2, 2, 0.33, {});
  root->halfwidth = 0.43;
  root->name = strdup("2.07");
  for (const auto &[a, b] : {std::pair{0, 1}, {6, 7}, {9, 10}})
    Maze_cut(root, a, b);
  const Vec3 corner = node_position(maze_nodes(root)[11]);
  Maze_join(root, 3, add_node(root, node_position(maze_nodes(root)[3]) + Vec3{0, 1.3, 2.6}));
  Maze_join(root, 11, add_node(root, corner + Vec3{0, 0, 1.9}));
  add_node(root, corner + Vec3{-1.7, 2.2, 0.8});
  Maze_join(root, add_node(root, corner + Vec3{-4, 2.3, 1}),
            add_node(root, corner + Vec3{-6.3, 1.7, 0}));
  Maze_join(root, 0, add_node(root, node_position(maze_nodes(root)[0]) + Vec3{-1.6, 0, 2.1}));
  Maze_join(root, 1, 4);
  Maze_join(root, 0, 5);
  bend(root, 0.37);
  maze_nodes(root)[13].x = maze_nodes(root)[11].x;
  maze_nodes(root)[13].y = maze_nodes(root)[11].y;
  Maze_cut(old, 1, 4);
  Maze_cut(young, 3, 6);
  for (Maze *room : {old, young})
    bend(room, 0.1);
  hold(root, 5, old, 0.13, "2.07.03");
  hold(root, 6, young, 0.17, "2.07.9");
  int32_t middle = 8;
  while (maze_nodes(young)[middle].degree < 3)
    middle--;
  hold(young, middle, inner, 0.06, "5");
  bend(inner, 0.03);
  maze_nodes(root)[8].self.colour = 0xFFFFFF; // reserved for the user
  return {root, {root, old, young, inner}, now};
}

// An arc of edges and nodes that are five times older each.
Tree ages() {
  Maze *root = scenario_path(12);
  const double time = 300000.7;
  for (int32_t i = 0; i < 12; i++) {
    MazeNode &node = maze_nodes(root)[i];
    node.x = 5.3 * std::cos(0.5 * i);
    node.y = 4.1 * std::sin(0.5 * i);
    node.self = {0x202830, time - 0.05 * std::pow(5.2, i - 1), never};
    if (i < 11)
      set_edge(root, i, i == 0 ? 0 : 1, {0x302420, time - 0.02 * std::pow(5.2, i), never});
  }
  return {root, {root, root, root, root}, time};
}

// A road from the near depths to the far ones, a wide one far behind it, a room before both, and a
// road across it.
Tree depths() {
  Maze *root = Maze_new(), *room = scenario_path(2), *behind = scenario_path(2);
  for (const Vec3 p : {Vec3{3, 2, -200},
                       {700, 900, -1900},
                       {1.3, 0.7, 0.3},
                       {0, 0, -50000},
                       {-3.9, -2.9, 0.7},
                       {-3.3, 3.3, 0.9}})
    add_node(root, p);
  Maze_join(root, 0, 1);
  Maze_join(root, 4, 5);
  Maze_scale(room, 9.7, 0);
  Maze_translate(room, {-4.6, 0.3, 0.1}, 0);
  Maze_scale(behind, 30000, 0);
  Maze_rotate(behind, {0, 0, 1.4}, 0);
  Maze_translate(behind, {-11000, -1000, -50000}, 0);
  behind->halfwidth = 4000.7;
  scenario_hold(root, 2, room);
  scenario_hold(root, 3, behind);
  set_edge(root, 0, 0, {0x40A040, never, never});
  set_edge(behind, 0, 0, {0x4040C0, never, never});
  return {root, {root, room, behind, room}, now};
}

Tree scene_tree(const Scene &scene) {
  if (scene.tree == scene_path) return ages();
  if (scene.tree == scene_depths) return depths();
  const Tree tree = house();
  if (scene.tree == scene_large) Maze_scale(tree.root, 11.3, 1);
  for (int k = 1; k < 4; k++)
    tree.levels[k]->bordermask = static_cast<uint32_t>(scene.doors) >> (4 * k - 4) & 15;
  return tree;
}

void set_plot(const Scene &scene) {
  plot_type = scene.plot % scene_landscape;
  plot_voronoi = scene.plot == scene_landscape;
  voronoi_mode = scene.mode;
  plot_light = scene.light;
  plot_grid = scene.grid;
  plot_smooth_lines = scene.smooth;
  plot_fixed = scene.fixed;
  plot_connected = scene.connected;
}

void draw_world(const Scene &scene) {
  const Tree tree = scene_tree(scene);
  World world = world_from_above(tree.root, {tree.levels[scene.level], scene.node});
  world.time = tree.time;
  world.offset = scene.offset;
  world.zoom = scene.zoom;
  world.showtrail = scene.showtrail;
  world.view = camera_orientation(scene.yaw, scene.pitch);
  World_place_camera(&world);
  set_plot(scene);
  World_apply_view(&world);
  scene_draw(&world, scene.stereo, scene.swap, scene.depth);
  overlay_draw(&world, scene.help, 0.016);
  set_plot({.name = nullptr, .mode = 5});
  Maze_destroy(tree.root, 1);
}

// A ground of four colours, which blending lets through.
void ground() {
  gfx_push_2d();
  for (int k = 0; k < 4; k++) {
    glColor3ub(static_cast<uint8_t>(k * 60), static_cast<uint8_t>(k % 2 * 90), 70);
    glRecti(k * screen_width / 4, 0, (k + 1) * screen_width / 4, screen_height);
  }
  gfx_pop_2d();
}

void pixel_text(const char *style, float x, float y, float wrap_x, float bottom_y, const char *text,
                uint32_t colour) {
  font_apply(style);
  text_begin();
  text_print(x, y, wrap_x, bottom_y, text, colour);
  text_end();
  font_apply("normal");
}

void draw_glyphs() {
  ground();
  pixel_text("normal", 3, 2, 0, 0, "Ogre 8@j\nfix: {Quay} 0123456789", 0xFFC080);
  pixel_text("normal", 4, 32, 110, 70,
             "words that wrap, Incomprehensibilities too, and are cut at the limit", 0x80FFC0);
  pixel_text("normal:big:black", 5, 88, 0, 0, "Heavy \2\1\14 wide", 0xC0C0FF);
}

void draw_styles() {
  ground();
  pixel_text("fmod:size=34px", 3, 2, 0, 0, "Strokes 3.14", 0xFFFFFF);
  pixel_text("fmod:size=22px:width=150%:bold", 3, 38, 0, 0, "Bold 42", 0xFFD040);
  char scripts[text_prepare_room(32)] = "E=mc^2 x_{ij^2} alpha Omega";
  text_prepare(scripts, 2);
  pixel_text("normal:height=2", 3, 70, 0, 0, scripts, 0x60E0FF);
  pixel_text("fmod:small", 100, 40, 0, 0, "Big", 0x40FF40);
}

void draw_blends() {
  ground();
  for (int mode = 1; mode <= 4; mode++) {
    text_blend_mode = mode;
    pixel_text("normal:size=3", static_cast<float>(2 + 38 * (mode - 1)), 5, 0, 0, "H&", 0xE0A060);
    font_apply("fmod");
    glPushMatrix();
    glLoadIdentity();
    text3d_begin();
    glColor3f(0.9F, 0.5F, 0.2F);
    text3d_print(3.7 * (mode - 1) - 7.5, -0.5, -8, "8\n\tg", 0, -3, 0, 3, 0, 0);
    text3d_end();
    glPopMatrix();
    font_apply("normal");
  }
  text_blend_mode = 3;
}

// Texts turned, far away and close, and one of them half within another.
void draw_world_texts() {
  font_apply("fmod");
  glTranslated(0.3, 0.2, -5);
  text3d_begin();
  glColor3f(0.8F, 0.9F, 0.8F);
  text3d_print(-4, 3.1, 0, "Turned 3.07", 0.2, -1.1, 0.3, 1.1, 0.2, -0.4);
  text3d_print(2, -3, -20, "farther \"07\"", 0, -2, 0, 2.3, 0, 0);
  glColor3f(1, 0.6F, 0.2F);
  text3d_print(-3, 1, 1.2, "8", 0, -4, -2, 4, 0, -1);
  glColor3f(0.3F, 0.6F, 1);
  text3d_print(-3, 0.6, 0.4, "RR", 0, -4, 0.9, 4, 0, 0);
  text3d_end();
  font_apply("normal");
}

} // namespace

// clang-format off
const std::vector<Scene> scenes = {
  {.name = "lines from above", .node = 2, .yaw = 0.3, .pitch = 0, .zoom = 7.3, .offset = {-1.31, 2.17, 0.1}},
  {.name = "lines tilted", .pitch = -0.9},
  {.name = "lines, low", .node = 8, .yaw = -0.5, .pitch = -1.45, .zoom = 4.7},
  {.name = "lines at a crossing", .node = 4, .yaw = 0.6, .pitch = -0.5, .zoom = 3.6},
  {.name = "lines in a room", .level = 1, .node = 2, .zoom = 2.3},
  {.name = "lines in the inner room", .level = 3, .node = 1, .yaw = 1.3, .zoom = 0.9, .offset = {0.1, 0.05, 0}},
  {.name = "lines, doors crossed", .level = 2, .node = 3, .zoom = 4.1, .doors = 0x73F},
  {.name = "lines from far", .tree = scene_large, .pitch = -0.4, .zoom = 91.3},
  {.name = "lines in the plane of the user", .level = 2, .node = 0, .yaw = 0.8, .pitch = -1.5707963, .zoom = 3.3},
  {.name = "ages", .tree = scene_path, .node = 3, .pitch = 0, .zoom = 9.7},
  {.name = "ages without a trail", .tree = scene_path, .node = 3, .pitch = 0, .zoom = 9.7, .fixed = 1, .showtrail = 0},
  {.name = "two depths", .tree = scene_depths, .level = 1, .node = 1, .yaw = 0, .pitch = 0, .zoom = 16.7},
  {.name = "label of the root", .node = 8, .yaw = 0.2, .pitch = -0.3, .zoom = 6.2, .offset = {0.2, 3.3, 0}},
  {.name = "fixed, tilted", .pitch = -0.9, .fixed = 1},
  {.name = "fixed at a crossing", .node = 4, .yaw = 0.6, .pitch = -0.5, .zoom = 3.6, .fixed = 1},
  {.name = "fixed without a trail", .node = 4, .yaw = 0.6, .pitch = -0.5, .zoom = 3.6, .fixed = 1, .showtrail = 0},
  {.name = "fixed, doors crossed", .level = 2, .node = 3, .zoom = 4.1, .fixed = 1, .doors = 0xFF1},
  {.name = "fixed with labels", .level = 1, .node = 1, .yaw = 0.2, .pitch = -0.3, .zoom = 6.9, .offset = {0.4, 3, 0}, .fixed = 1},
  {.name = "fixed, partly far", .tree = scene_large, .node = 1, .yaw = 0.1, .pitch = -1.1, .zoom = 89.6, .fixed = 1},
  {.name = "fixed, far and plain", .tree = scene_large, .pitch = -0.4, .zoom = 111.3, .smooth = 0, .fixed = 1},
  {.name = "connected area on lines", .node = 9, .zoom = 9.1, .connected = 1},
  {.name = "connected area on a gantry", .level = 1, .node = 4, .zoom = 2.7, .plot = scene_gantry, .connected = 1, .doors = 2},
  {.name = "connected area on land", .level = 2, .node = 2, .zoom = 3.9, .plot = scene_landscape, .mode = 5, .connected = 1},
  {.name = "connected pair", .node = 15, .zoom = 6.3, .plot = scene_balls, .connected = 1},
  {.name = "grid", .node = 9, .pitch = -0.8, .grid = 1},
  {.name = "grid of plain lines", .node = 12, .yaw = 0.1, .pitch = -0.3, .zoom = 6.7, .offset = {0.4, 0.3, 0}, .grid = 1, .smooth = 0},
  {.name = "grid of hundreds", .pitch = -0.9, .zoom = 170.3, .grid = 1},
  {.name = "grid of thousands", .yaw = 0.2, .pitch = -1.1, .zoom = 5200, .grid = 1},
  {.name = "grid of millions", .pitch = -0.2, .zoom = 700000.5, .grid = 1},
  {.name = "grid in a gantry", .level = 2, .node = 1, .pitch = -1.1, .zoom = 3.9, .plot = scene_gantry, .grid = 1},
  {.name = "balls", .pitch = -0.8, .plot = scene_balls},
  {.name = "balls with a light", .pitch = -0.8, .plot = scene_balls, .light = 1},
  {.name = "balls at a crossing", .node = 4, .yaw = 2.2, .pitch = -0.9, .zoom = 2.2, .offset = {0.4, 0.3, 0.2}, .plot = scene_balls},
  {.name = "balls in a room", .level = 2, .node = 1, .yaw = -0.7, .zoom = 2.4, .plot = scene_balls, .light = 1, .doors = 0x731},
  {.name = "gantry", .yaw = 0.9, .pitch = -0.5, .zoom = 6.2, .plot = scene_gantry},
  {.name = "gantry with a light", .node = 4, .yaw = 0.9, .pitch = -0.7, .zoom = 2.9, .plot = scene_gantry, .light = 1},
  {.name = "gantry, close", .node = 3, .yaw = 0.3, .pitch = -0.4, .zoom = 0.7, .offset = {0.2, 0.4, 0}, .plot = scene_gantry},
  {.name = "gantry from below", .node = 1, .yaw = 1.2, .pitch = -2.5, .zoom = 2.9, .plot = scene_gantry, .light = 1},
  {.name = "gantry in a room", .level = 1, .node = 0, .yaw = 0.2, .pitch = -0.8, .zoom = 2.1, .plot = scene_gantry, .doors = 0x00F},
  {.name = "outlines", .pitch = -0.5, .plot = scene_landscape, .mode = 0},
  {.name = "rooms", .zoom = 8.9, .plot = scene_landscape, .mode = 1},
  {.name = "lit rooms", .yaw = 2.3, .pitch = -0.9, .zoom = 6.9, .plot = scene_landscape, .mode = 2},
  {.name = "terrain", .yaw = -0.6, .zoom = 8.3, .plot = scene_landscape, .mode = 3},
  {.name = "triangles", .pitch = -0.7, .plot = scene_landscape, .mode = 4},
  {.name = "ground and walls", .pitch = -0.8, .plot = scene_landscape, .mode = 5},
  {.name = "walls in a room", .level = 1, .node = 4, .yaw = 1.1, .pitch = -0.9, .zoom = 2.2, .plot = scene_landscape, .mode = 5, .doors = 1},
  {.name = "outlines in a room", .level = 2, .node = 0, .zoom = 2.2, .plot = scene_landscape, .mode = 0, .showtrail = 0},
  {.name = "top and bottom", .plot = scene_balls, .stereo = 1},
  {.name = "side by side, swapped", .stereo = 2, .swap = 1, .depth = 0.08},
  {.name = "alternate lines", .pitch = -1.1, .plot = scene_landscape, .mode = 5, .stereo = 3},
  {.name = "alternate lines, swapped", .pitch = -1.1, .stereo = 3, .swap = 1, .depth = 0.08},
  {.name = "two screens", .plot = scene_gantry, .stereo = 4},
  {.name = "two screens, stacked", .grid = 1, .stereo = 5, .swap = 1},
  {.name = "red and cyan", .stereo = 6, .help = 0},
  {.name = "red and green, swapped", .plot = scene_balls, .stereo = 7, .swap = 1},
  {.name = "magenta and green", .fixed = 1, .stereo = 8},
  {.name = "magenta and green, inside out", .plot = scene_landscape, .mode = 2, .stereo = 8, .swap = 1, .depth = -0.03},
  {.name = "no such mode", .stereo = 9, .help = 0},
  {.name = "glyphs", .draw = draw_glyphs},
  {.name = "styles", .draw = draw_styles},
  {.name = "blending of texts", .draw = draw_blends},
  {.name = "texts in the world", .draw = draw_world_texts},
  {.name = "gantry below a gantry", .tree = scene_depths, .level = 1, .node = 0, .yaw = 0.2, .pitch = -0.3, .zoom = 1.9, .plot = scene_gantry, .light = 1},
  {.name = "steep gantry", .node = 3, .yaw = -0.9, .pitch = -1, .zoom = 2.6, .offset = {0, 0.5, 0.9}, .plot = scene_gantry, .light = 1},
  {.name = "steep gantry along x", .node = 0, .yaw = 1.9, .pitch = -0.9, .zoom = 2.3, .plot = scene_gantry, .light = 1},
  {.name = "wide", .width = 320, .node = 1, .zoom = 3.3, .plot = scene_gantry, .help = 0},
  {.name = "help", .width = 400, .height = 200, .help = 1},
  {.name = "high", .width = 100, .height = 200, .node = 2, .plot = scene_landscape, .mode = 5, .grid = 1, .help = 0},
};
// clang-format on

void scene_frame(const Scene &scene) {
  fonts_for_test();
  gfx_resize(scene.width, scene.height);
  if (scene.draw != nullptr)
    scene.draw();
  else
    draw_world(scene);
}
