#include "app/scenes.h"

#include <cstring>
#include <fstream>
#include <sstream>

#include "app/overlay.h"
#include "generate/transform.h"
#include "gfx/gl.h"
#include "gfx/gl_util.h"
#include "gfx/window.h"
#include "maze/edit.h"
#include "maze/lifetime.h"
#include "render/gl/view.h"
#include "render/plot_switches.h"
#include "render/scene.h"
#include "scenarios.h"
#include "text/fonts.h"
#include "text/prepare.h"
#include "text/style.h"
#include "text/text.h"
#include "world/camera.h"
#include "world/move.h"
#include "world/small_world.h"

namespace {

struct Tree {
  Maze *levels[4]; // the root first
  double time;
};

std::istream &operator>>(std::istream &in, MazeEdge &row) {
  return in >> std::hex >> row.colour >> std::dec >> row.usertime >> row.roamertime;
}

void read_node(std::istream &in, Maze *maze) {
  Vec3 p;
  MazeEdge self;
  in >> p.x >> p.y >> p.z >> self;
  MazeNode node = {};
  MazeNode_init(&node, p.x, p.y, p.z);
  node.self = self;
  GrowList_append(&maze->nodes, &node);
}

void read_edge(std::istream &in, Maze *maze) {
  int32_t a, b;
  MazeEdge edge;
  in >> a >> b >> edge;
  Maze_join(maze, a, b);
  for (MazeNode *end : {maze_nodes(maze) + a, maze_nodes(maze) + b})
    end->edge[end->degree - 1] = edge;
}

// Mazes are in the order in which they are created, and before the mazes that they hold.
Tree read_tree(const std::string &name) {
  Tree tree = {};
  std::ifstream in(VOREL_SCENES "/" + name);
  int32_t level, node, held;
  std::string word, label;
  while (in >> word) {
    if (word == "#") std::getline(in, word);
    if (word == "time") in >> tree.time;
    if (word == "maze") {
      in >> level;
      Maze *maze = tree.levels[level] = Maze_new();
      in >> maze->halfwidth >> label;
      if (label != "-") maze->name = strdup(label.c_str());
    }
    if (word == "node") read_node(in, tree.levels[level]);
    if (word == "edge") read_edge(in, tree.levels[level]);
    if (word == "hold") {
      in >> level >> node >> held;
      scenario_hold(tree.levels[level], node, tree.levels[held]);
    }
  }
  return tree;
}

void draw_world(const Scene &scene) {
  const auto real = [&](const char *key) { return scene.values.at(key); };
  const auto number = [&](const char *key) { return scene_number(scene, key); };
  constexpr const char *trees[] = {"house.txt", "ages.txt", "depths.txt", "narrow.txt"};
  const Tree tree = read_tree(trees[number("tree")]);
  Maze_scale(tree.levels[0], real("scale"), 1);
  for (int k = 1; k < 4; k++)
    if (tree.levels[k] != nullptr)
      tree.levels[k]->bordermask = static_cast<uint32_t>(number("doors")) >> (4 * k - 4) & 15;
  SmallWorld world(tree.levels[0]);
  world.cur = {tree.levels[number("level")], number("node")};
  world.time = tree.time;
  world.offset = {real("x"), real("y"), real("z")};
  world.zoom = real("zoom");
  world.showtrail = number("trail");
  world.view = camera_orientation(real("yaw"), real("pitch"));
  World_place_camera(&world);
  plot_type = number("plot") % plot_types;
  plot_voronoi = number("plot") == plot_types;
  voronoi_mode = number("mode");
  plot_light = number("light");
  plot_grid = number("grid");
  plot_smooth_lines = number("smooth");
  plot_fixed = number("fixed");
  plot_connected = number("connected");
  World_apply_view(&world);
  scene_draw(&world, World_follow_point(&world), number("stereo"), number("swap"), real("depth"));
  overlay_draw(&world, number("help"), 0.016);
}

// A background of four colours, which shows through blending.
void background() {
  gfx_push_2d();
  for (int k = 0; k < 4; k++) {
    glColor3ub(static_cast<uint8_t>(k * 60), static_cast<uint8_t>(k % 2 * 90), 70);
    glRecti(k * screen_width / 4, 0, (k + 1) * screen_width / 4, screen_height);
  }
  gfx_pop_2d();
}

void pixel_text(const char *style, float x, float y, uint32_t colour, const char *text,
                float wrap_x = 0, float bottom_y = 0) {
  font_apply(style);
  text_begin();
  text_print(x, y, wrap_x, bottom_y, text, colour);
  text_end();
  font_apply("normal");
}

void world_text(Vec3 p, const char *text, Vec3 down, Vec3 right) {
  text3d_print(p.x, p.y, p.z, text, down.x, down.y, down.z, right.x, right.y, right.z);
}

void draw_glyphs() {
  background();
  pixel_text("normal", 3, 2, 0xFFC080, "Ogre 8@j\nfix: {Quay} 0123456789");
  pixel_text("normal", 4, 32, 0x80FFC0,
             "words that wrap, Incomprehensibilities too, and are cut at the limit", 110, 70);
  pixel_text("normal:big:black", 5, 88, 0xC0C0FF, "Heavy \2\1\14 wide");
}

void draw_styles() {
  background();
  pixel_text("fmod:size=34px", 3, 2, 0xFFFFFF, "Strokes 3.14");
  pixel_text("fmod:size=22px:width=150%:bold", 3, 38, 0xFFD040, "Bold 42");
  char scripts[text_prepare_room(32)] = "E=mc^2 x_{ij^2} alpha Omega";
  text_prepare(scripts, 2);
  pixel_text("normal:height=2", 3, 70, 0x60E0FF, scripts);
  pixel_text("fmod:small", 100, 40, 0x40FF40, "Big");
}

// Rotated texts, far and near, two of which intersect.
void draw_world_texts() {
  font_apply("fmod");
  glTranslated(0.3, 0.2, -5);
  text3d_begin();
  glColor3f(0.8F, 0.9F, 0.8F);
  world_text({-4, 3.1, 0}, "Turned 3.07", {0.2, -1.1, 0.3}, {1.1, 0.2, -0.4});
  world_text({2, -3, -20}, "farther \"07\"", {0, -2, 0}, {2.3, 0, 0});
  glColor3f(1, 0.6F, 0.2F);
  world_text({-3, 1, 1.2}, "8", {0, -4, -2}, {4, 0, -1});
  glColor3f(0.3F, 0.6F, 1);
  world_text({-3, 0.6, 0.4}, "RR", {0, -4, 0.9}, {4, 0, 0});
  text3d_end();
  font_apply("normal");
}

} // namespace

std::vector<Scene> read_scenes() {
  std::vector<Scene> scenes;
  std::ifstream file(VOREL_SCENES "/scenes.txt");
  for (std::string row; std::getline(file, row);) {
    if (row.empty() || row[0] == '#') continue;
    Scene scene = scenes.empty() ? Scene{} : scenes[0];
    scene.name = row.substr(0, row.find(':'));
    std::istringstream words(row.substr(scene.name.size() + 1));
    for (std::string key, value; words >> key >> value;)
      (scenes.empty() ? scene.values[key] : scene.values.at(key)) = std::stod(value);
    scenes.push_back(scene);
  }
  return {scenes.begin() + 1, scenes.end()};
}

int scene_number(const Scene &scene, const char *key) {
  return static_cast<int>(scene.values.at(key));
}

void scene_frame(const Scene &scene) {
  constexpr void (*texts[])() = {draw_glyphs, draw_styles, draw_world_texts};
  fonts_for_test();
  gfx_resize(scene_number(scene, "width"), scene_number(scene, "height"));
  if (const int text = scene_number(scene, "text"); text >= 0) return texts[text]();
  draw_world(scene);
}
