// Draws one new maze of each kind, as key N makes them, into portable pixmaps in the folder that
// the command line names.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "app/fonts.h"
#include "app/scene.h"
#include "generate/carve.h"
#include "generate/new_tree.h"
#include "generate/topologies.h"
#include "generate/paint.h"
#include "generate/transform.h"
#include "gfx/texture.h"
#include "maze/pos.h"
#include "picture.h"
#include "render/gl/view.h"
#include "support/random.h"
#include "world/camera.h"

namespace {

constexpr int32_t first_kind = 2; // of twelve; the first three are all planes
const char *const kinds[] = {"plane",  "hexagon", "honeycomb", "grid",  "polar",
                             "sphere", "nested",  "nested3",   "torus", "band"};

// The first seed that makes a maze of this kind with the colours of the slow sines.
uint32_t seed_of(int32_t kind) {
  for (uint32_t seed = 1;; ++seed) {
    rand_seed(seed);
    if (rand_int(12) != kind) continue;
    rand_seed(seed);
    Maze *maze = Maze_new_tree(0);
    const bool flat = maze_nodes(maze)[0].self.colour == maze_nodes(maze)[5].self.colour;
    Maze_destroy(maze, 1);
    if (!flat) return seed;
  }
}

// A plain node: the nearest to p in the root, else in the maze that it holds, and so on.
Pos place_near(Maze *maze, Vec3 p) {
  int32_t best = 0;
  for (int32_t i = maze_count(maze); i-- > 0;) {
    const auto distance = [&](int32_t k) {
      return length(node_position(maze_nodes(maze)[k]) - p) -
             (maze_nodes(maze)[k].submaze ? 1e6 : 0);
    };
    if (distance(i) < distance(best)) best = i;
  }
  Maze *below = maze_nodes(maze)[best].submaze;
  return below ? place_near(below, p) : Pos{maze, best};
}

void save(const Picture &picture, const std::string &path) {
  std::FILE *file = std::fopen(path.c_str(), "wb");
  if (!file) {
    std::perror(path.c_str());
    std::exit(1);
  }
  std::fprintf(file, "P6\n%d %d\n255\n", picture_width, picture_height);
  for (size_t i = 0; i < picture.bgra.size(); i += 4)
    for (const size_t channel : {2, 1, 0})
      std::fputc(picture.bgra[i + channel], file);
  std::fclose(file);
}

// Obliquely from above, at a distance that shows about `extent` world units.
void draw(Maze *root, Pos cur, Vec3 middle, double extent, const std::string &path) {
  World world = world_from_above(root, cur);
  world.zoom = 0.55 * extent;
  world.view = camera_orientation(0.4, -0.8);
  world.camera = middle + world.zoom * Mat3_row(world.view, 2);
  picture_begin();
  World_apply_view(&world);
  scene_draw(&world, 0, 0, 0);
  save(picture_take(), path);
}

void draw_from_outside_and_inside(Maze *root, const std::string &path) {
  Vec3 low, high;
  Maze_bounds(root, &low, &high);
  const Vec3 middle = (low + high) * 0.5;
  const Pos cur = place_near(root, middle);
  draw(root, cur, middle, length(high - low), path + ".ppm");
  draw(root, cur, Pos_position(cur), 60.0, path + "-inside.ppm");
  Maze_destroy(root, 1);
}

} // namespace

int main(int argc, char **argv) {
  const std::string folder = argc > 1 ? argv[1] : ".";
  textures_keep_component_count = 1;
  picture_begin();
  fonts_start();
  int32_t kind = first_kind;
  for (const char *name : kinds) {
    rand_seed(seed_of(kind++));
    draw_from_outside_and_inside(Maze_new_tree(0), folder + "/kind-" + name);
  }
  rand_seed(5);
  draw_from_outside_and_inside(Maze_new_tree(1), folder + "/kind-patchwork");
  draw_from_outside_and_inside(Maze_new_tree(2), folder + "/kind-ladder");
  Maze *box = Maze_box(12, 16, 10); // key N makes it only as a tile or nested
  Maze_carve(box);
  Maze_colour_field(box, colour_field_sine, 0);
  Maze_scale(box, 2.5, 0);
  draw_from_outside_and_inside(box, folder + "/kind-box");
  return 0;
}
