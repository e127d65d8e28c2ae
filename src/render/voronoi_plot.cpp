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

constexpr int32_t chunk_nodes = 256;
constexpr double marker_radius = 0.12;
constexpr double marker_lift = 0.3; // towards the eye

// What a mode draws of all cells before it draws its next layer, in faces of so many corners.
struct Layer {
  void (*shape)(ShapeList *out, Maze *maze, int32_t node, const World *world);
  uint32_t corners;
};

constexpr int32_t most_layers = 2;

constexpr Layer layers[][most_layers] = {
    {{voronoi_outline, 2}}, {{voronoi_room, 3}},     {{voronoi_room, 3}},
    {{voronoi_terrain, 3}}, {{voronoi_delaunay, 3}}, {{voronoi_ground, 3}, {voronoi_walls, 4}}};

struct Face {
  Vec3f normal;
  uint32_t colour;
  Vec3f corners[4]; // those that aren't used are zero
};

static_assert(sizeof(Face) == 64); // no padding

void collect_face(const ShapeVertex *vertices, uint32_t corners, GrowList *faces, Box *box) {
  Face face = {rounded(vertices[0].normal), vertices[0].colour, {}};
  for (uint32_t k = 0; k < corners; k++) {
    face.corners[k] = rounded(vertices[k].place);
    Box_add(box, vertices[k].place);
  }
  GrowList_append(faces, &face);
}

void collect_layer(const MazeRun &run, const Layer &layer, GrowList *faces, Box *box) {
  ShapeList vertices;
  for (int32_t i = run.end - 1; i >= run.first; i--) {
    if (maze_nodes(run.maze)[i].submaze != nullptr) continue;
    vertices.clear();
    layer.shape(&vertices, run.maze, i, run.world);
    for (size_t v = 0; v < vertices.size(); v += layer.corners)
      collect_face(&vertices[v], layer.corners, faces, box);
  }
}

void collect(const MazeRun &run, GrowList *parts, Box *box) {
  if (voronoi_cells(run.maze) == nullptr) // what moves nodes drops the lists too
    voronoi_build_missing(run.maze, 1);
  for (int32_t k = 0; k < most_layers && layers[voronoi_mode][k].shape != nullptr; k++)
    collect_layer(run, layers[voronoi_mode][k], &parts[k], box);
}

void draw_faces(const GrowList &faces, uint32_t first, uint32_t end, int corners) {
  for (uint32_t i = first; i < end; i++) {
    const Face &face = rows<Face>(faces)[i];
    glColor3ub(colour_red(face.colour), colour_green(face.colour), colour_blue(face.colour));
    glNormal3f(face.normal.x, face.normal.y, face.normal.z);
    for (int k = 0; k < corners; k++)
      glVertex3f(face.corners[k].x, face.corners[k].y, face.corners[k].z);
  }
}

void draw_lines(const GrowList &faces, uint32_t first, uint32_t end, double) {
  draw_faces(faces, first, end, 2);
}

void draw_triangles(const GrowList &faces, uint32_t first, uint32_t end, double) {
  draw_faces(faces, first, end, 3);
}

void draw_quads(const GrowList &faces, uint32_t first, uint32_t end, double) {
  draw_faces(faces, first, end, 4);
}

constexpr MazePart lines = {sizeof(Face), GL_LINES, draw_lines};
constexpr MazePart triangles = {sizeof(Face), GL_TRIANGLES, draw_triangles};
constexpr MazePart quads = {sizeof(Face), GL_QUADS, draw_quads};

void draw_marker(const World *world) {
  const Vec3 p = World_follow_point(world);
  const Vec3 centre = p + marker_lift * unit(world->camera - p);
  fan_disc(centre, marker_radius, colour_white, world->camera);
}

void light_off() {
  glDisable(GL_LIGHTING);
}

constexpr MazeListKind kind_of(MazePart first, MazePart second, bool lit) {
  return {.name = "voronoilist",
          .collect = collect,
          .parts = {first, second},
          .passes = second.size == 0 ? 1 : 2,
          .chunk = chunk_nodes,
          .before = lit ? fixed_light_on : nullptr,
          .after = lit ? light_off : nullptr,
          .marker = draw_marker};
}

constexpr MazeListKind kinds[] = {kind_of(lines, {}, false),    kind_of(triangles, {}, false),
                                  kind_of(triangles, {}, true), kind_of(triangles, {}, true),
                                  kind_of(triangles, {}, true), kind_of(triangles, quads, true)};

static_assert(std::size(kinds) == std::size(layers));

} // namespace

void voronoi_plot(Maze *maze, const World *world) {
  assert(voronoi_mode >= 0 && voronoi_mode < static_cast<int32_t>(std::size(kinds)));
  maze_list_call(maze, kinds[voronoi_mode], every_pass, 1, world);
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
