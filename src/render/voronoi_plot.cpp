#include "render/voronoi_plot.h"

#include <cassert>
#include <iterator>

#include "gfx/gl.h"
#include "render/disc.h"
#include "render/maze_list.h"
#include "render/plot.h"
#include "render/voronoi_geometry.h"
#include "render/voronoi_shapes.h"
#include "support/colour.h"
#include "world/move.h"

namespace {

constexpr double marker_radius = 0.12;
constexpr double marker_lift = 0.3; // towards the eye

// One kind of primitive, drawn for all cells.
struct Layer {
  GLenum primitive;
  void (*shape)(ShapeList *out, Maze *maze, int32_t node, const World *world);
};

struct Mode {
  bool lit;
  Layer layers[2];
  int32_t count;
};

constexpr Mode modes[] = {
    {false, {{GL_LINES, voronoi_outline}}, 1},
    {false, {{GL_TRIANGLES, voronoi_room}}, 1},
    {true, {{GL_TRIANGLES, voronoi_room}}, 1},
    {true, {{GL_TRIANGLES, voronoi_terrain}}, 1},
    {true, {{GL_TRIANGLES, voronoi_delaunay}}, 1},
    {true, {{GL_TRIANGLES, voronoi_ground}, {GL_QUADS, voronoi_walls}}, 2},
};

// Only lit modes have normals.
void draw_layer(const Layer &layer, bool lit, Maze *maze, const World *world, Box *box) {
  ShapeList vertices;
  glBegin(layer.primitive);
  for (int32_t i = maze_count(maze); i-- > 0;) {
    if (maze_nodes(maze)[i].submaze != nullptr) continue;
    vertices.clear();
    layer.shape(&vertices, maze, i, world);
    for (const ShapeVertex &v : vertices) {
      glColor3ub(colour_red(v.colour), colour_green(v.colour), colour_blue(v.colour));
      if (lit) glNormal3d(v.normal.x, v.normal.y, v.normal.z);
      glVertex3d(v.place.x, v.place.y, v.place.z);
      Box_add(box, v.place);
    }
  }
  glEnd();
}

// All of one layer comes before all of the next.
void list_body(Maze *maze, int32_t, int32_t, const World *world, Box *box) {
  assert(voronoi_mode >= 0 && voronoi_mode < static_cast<int32_t>(std::size(modes)));
  const Mode &mode = modes[voronoi_mode];
  if (voronoi_cells(maze) == nullptr) // what moves nodes drops the list too
    voronoi_build(maze, 1);
  if (mode.lit) fixed_light_on();
  for (int32_t i = 0; i < mode.count; i++)
    draw_layer(mode.layers[i], mode.lit, maze, world, box);
  if (mode.lit) glDisable(GL_LIGHTING);
}

void draw_marker(const World *world) {
  const Vec3 p = World_follow_point(world);
  const Vec3 centre = p + marker_lift * unit(world->camera - p);
  fan_disc(centre, marker_radius, colour_white, world->camera);
}

} // namespace

void voronoi_plot(Maze *maze, const World *world) {
  maze_list_call(maze, {"voronoilist", list_body, INT32_MAX, sight_planes}, world);
  draw_marker(world);
}

void fixed_light_on() {
  const float diffuse[] = {0.8F, 0.8F, 0.8F, 1};
  const float position[] = {0.5F, 0.6F, 0.7F, 0};
  glEnable(GL_LIGHTING);
  glLightfv(GL_LIGHT0, GL_DIFFUSE, diffuse);
  glLightfv(GL_LIGHT0, GL_POSITION, position);
  glEnable(GL_LIGHT0);
  glEnable(GL_COLOR_MATERIAL);
}
