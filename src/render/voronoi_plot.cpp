#include "render/voronoi_plot.h"

#include <cassert>
#include <iterator>

#include "gfx/gl.h"
#include "gfx/gl_util.h"
#include "maze/attachment_names.h"
#include "render/disc.h"
#include "render/gl/draw_cache.h"
#include "render/gl/immediate.h"
#include "render/plot_switches.h"
#include "render/voronoi_geometry.h"
#include "render/voronoi_shapes.h"
#include "support/colour.h"

namespace {

constexpr int32_t chunk_nodes = 256;
constexpr double marker_radius = 0.12;
constexpr double marker_lift = 0.3; // towards the eye

// A mode draws its layers one after another, each for all cells of a maze.
struct Layer {
  void (*shape)(ShapeList *out, Maze *maze, int32_t node, const World *world);
  uint32_t corners; // of a face
};

constexpr int32_t max_layers = 2;

constexpr Layer layers[][max_layers] = {
    {{voronoi_outline, 2}}, {{voronoi_box, 3}},      {{voronoi_box, 3}},
    {{voronoi_terrain, 3}}, {{voronoi_delaunay, 3}}, {{voronoi_ground, 3}, {voronoi_walls, 4}}};

struct Face {
  Vec3f normal;
  uint32_t colour;
  Vec3f corners[4]; // unused ones are zero
};

static_assert(sizeof(Face) == 64); // no padding

void collect_face(const ShapeVertex *vertices, uint32_t corners, GrowList *faces, Box *box) {
  Face face = {rounded(vertices[0].normal), vertices[0].colour, {}};
  for (uint32_t k = 0; k < corners; k++) {
    face.corners[k] = rounded(vertices[k].place);
    box_add(box, vertices[k].place);
  }
  GrowList_append(faces, &face);
}

void collect_layer(const CollectInput &input, const Layer &layer, GrowList *faces, Box *box) {
  ShapeList vertices;
  for (int32_t i = input.nodes.end - 1; i >= input.nodes.first; i--) {
    if (maze_nodes(input.maze)[i].submaze != nullptr) continue;
    vertices.clear();
    layer.shape(&vertices, input.maze, i, input.world);
    for (size_t v = 0; v < vertices.size(); v += layer.corners)
      collect_face(&vertices[v], layer.corners, faces, box);
  }
}

template <int mode> void collect(const CollectInput &input, GrowList *streams, Box *box) {
  if (!voronoi_is_built(input.maze)) // whatever drops the cells also drops this cache
    voronoi_build_missing(input.maze, 1);
  for (int32_t k = 0; k < max_layers && layers[mode][k].shape != nullptr; k++)
    collect_layer(input, layers[mode][k], &streams[k], box);
}

template <int corners>
void draw_faces(const GrowList &faces, uint32_t first, uint32_t end, double) {
  for (uint32_t i = first; i < end; i++) {
    const Face &face = rows<Face>(faces)[i];
    gfx_set_colour(face.colour);
    send_normal(face.normal);
    for (int k = 0; k < corners; k++)
      send_vertex(face.corners[k]);
  }
}

constexpr PrimitiveStream lines = {sizeof(Face), GL_LINES, draw_faces<2>};
constexpr PrimitiveStream triangles = {sizeof(Face), GL_TRIANGLES, draw_faces<3>};
constexpr PrimitiveStream quads = {sizeof(Face), GL_QUADS, draw_faces<4>};

void draw_marker(const View &view) {
  const Vec3 p = view.followed;
  fan_disc(p + marker_lift * unit(view.camera - p), marker_radius, colour_white, view.camera);
}

void light_off() {
  glDisable(GL_LIGHTING);
}

template <int mode>
constexpr PlotBatch mode_batch(PrimitiveStream first, PrimitiveStream second, bool lit,
                               bool shows_ages) {
  return {.name = attachment_cell_list,
          .collect = collect<mode>,
          .streams = {first, second},
          .passes = second.size == 0 ? 1 : 2,
          .chunk_nodes = chunk_nodes,
          .renews_touched = shows_ages,
          .before = lit ? fixed_light_on : nullptr,
          .after = lit ? light_off : nullptr,
          .marker = draw_marker};
}

constexpr PlotBatch batches[] = {
    mode_batch<0>(lines, {}, false, true),    mode_batch<1>(triangles, {}, false, true),
    mode_batch<2>(triangles, {}, true, true), mode_batch<3>(triangles, {}, true, true),
    mode_batch<4>(triangles, {}, true, true), mode_batch<5>(triangles, quads, true, false)};

static_assert(std::size(batches) == std::size(layers));

} // namespace

void voronoi_plot(Maze *maze, const World *world) {
  assert(voronoi_mode >= 0 && voronoi_mode < static_cast<int32_t>(std::size(batches)));
  draw_cache_draw(maze, batches[voronoi_mode], every_pass, true, view_of(world));
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
