#include "render/voronoi_plot.h"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <iterator>

#include "gfx/gl.h"
#include "gfx/gl_util.h"
#include "maze/attachment_names.h"
#include "render/disc.h"
#include "render/gl/draw_cache.h"
#include "render/gl/edge_colour.h"
#include "render/gl/immediate.h"
#include "render/plot_switches.h"
#include "render/voronoi_geometry.h"
#include "render/voronoi_shapes.h"
#include "support/colour.h"

namespace {

constexpr int32_t chunk_nodes = 256;
constexpr int32_t few_nodes = 64; // for modes with many faces per node: renewing is cheap
constexpr double max_wall = 1.0;  // above its height and half its thickness
constexpr double marker_radius = 0.12;
constexpr double marker_lift = 0.3; // towards the eye

// A mode draws its layers one after another, each for all cells of a maze.
struct Layer {
  void (*shape)(ShapeList *out, Maze *maze, int32_t node, uint32_t colour);
  uint32_t corners; // of a face
};

constexpr int32_t max_layers = 2;

constexpr Layer layers[][max_layers] = {
    {{voronoi_outline, 2}}, {{voronoi_box, 3}},      {{voronoi_box, 3}},
    {{voronoi_terrain, 3}}, {{voronoi_delaunay, 3}}, {{voronoi_delaunay, 3}, {voronoi_walls, 4}}};

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

constexpr int walls_mode = 5; // shows no ages

uint32_t node_colour(int mode, Pos here, const MazeNode &node, const World *world) {
  if (mode == walls_mode) return edge_colour(node.self.colour, here, Pos_null);
  return visit_colour(node.self, here, Pos_null, world);
}

void collect_layer(const CollectInput &input, int mode, const Layer &layer, GrowList *faces,
                   Box *box) {
  ShapeList vertices;
  const uint32_t *deferred = input.colours;
  each_plain_node(input, [&](Pos here, const MazeNode &node) {
    vertices.clear();
    layer.shape(&vertices, here.maze, here.node,
                deferred != nullptr ? *deferred++ : node_colour(mode, here, node, input.world));
    for (size_t v = 0; v < vertices.size(); v += layer.corners)
      collect_face(&vertices[v], layer.corners, faces, box);
  });
}

template <int mode> void collect(const CollectInput &input, GrowList *streams, Box *box) {
  for (int32_t k = 0; k < max_layers && layers[mode][k].shape != nullptr; k++)
    collect_layer(input, mode, layers[mode][k], &streams[k], box);
}

double longest_edge_squared(const Maze *maze, const MazeNode &node) {
  double longest = 0;
  for (uint32_t r = 0; r < node.degree; r++) {
    const Vec3 end = node_position(maze_nodes(maze)[node.nbr[r]]);
    longest = std::max(longest, length_squared(end - node_position(node)));
  }
  return longest;
}

// The feet of walls are on planes through three nodes, which can be of any slope, so their heights
// are known only with the cells. All else is near the node.
template <int mode> void defer(const CollectInput &input, GrowList *colours, Box *box) {
  if (!voronoi_is_attached(input.maze)) // whatever drops the cells also drops this cache
    voronoi_attach_missing(input.maze, 1);
  const bool has_slopes = mode == walls_mode && !voronoi_is_flat(input.maze);
  double longest = 0;
  Box walls = box_empty;
  each_plain_node(input, [&](Pos here, const MazeNode &node) {
    append_row(colours, node_colour(mode, here, node, input.world));
    box_add(box, node_position(node));
    longest = std::max(longest, longest_edge_squared(here.maze, node));
    if (has_slopes) voronoi_add_walls(&walls, here.maze, here.node);
  });
  const double reach = voronoi_reach * std::sqrt(longest) + max_wall;
  box_widen(box, {reach, reach, reach});
  box_unite(box, walls);
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
constexpr PlotBatch mode_batch(PrimitiveStream first, PrimitiveStream second, int32_t nodes,
                               bool lit, bool shows_ages) {
  return {.name = attachment_cell_list,
          .collect = collect<mode>,
          .defer = defer<mode>,
          .streams = {first, second},
          .colours_per_node = 1,
          .passes = second.size == 0 ? 1 : 2,
          .chunk_nodes = nodes,
          .renews_touched = shows_ages,
          .before = lit ? fixed_light_on : nullptr,
          .after = lit ? light_off : nullptr,
          .marker = draw_marker};
}

constexpr PlotBatch batches[] = {
    mode_batch<0>(lines, {}, chunk_nodes, false, true),
    mode_batch<1>(triangles, {}, few_nodes, false, true),
    mode_batch<2>(triangles, {}, few_nodes, true, true),
    mode_batch<3>(triangles, {}, few_nodes, true, true),
    mode_batch<4>(triangles, {}, chunk_nodes, true, true),
    mode_batch<walls_mode>(triangles, quads, chunk_nodes, true, false)};

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
