#include "render/voronoi_shapes.h"

#include <algorithm>

#include "render/voronoi_geometry.h"
#include "support/colour.h"

namespace {

constexpr int32_t shade = 0x40; // difference of a colour from its light and dark versions
constexpr double wall_inset = 0.1;
constexpr double min_wall_length = 0.05;
constexpr double wall_height = 0.5;
constexpr double half_thickness = 0.1;
constexpr Vec3 up = {0, 0, 1};

// A node with its cell.
struct Cell {
  const Maze *maze;
  int32_t node;
  Vec3 place;
  const VoronoiCorner *corners;
  int32_t count;
};

Cell cell_of(const Maze *maze, int32_t node) {
  const VoronoiCell cell = voronoi_cell(maze, node);
  return {maze, node, node_position(maze_nodes(maze)[node]), cell.corners, cell.count};
}

// The index wraps around.
const VoronoiCorner &corner(const Cell &cell, int32_t k) {
  return cell.corners[(k + cell.count) % cell.count];
}

Vec3 at_height(const VoronoiCorner &c, double z) {
  return {c.x, c.y, z};
}

// The position of a site, or of the cell's own node on the border of the square.
Vec3 site_place(const Cell &cell, int32_t site) {
  return site < 0 ? cell.place : node_position(maze_nodes(cell.maze)[site]);
}

uint32_t shaded(uint32_t colour, int32_t by) {
  return colour_adjust(colour, by, by, by);
}

void triangle(ShapeList *out, uint32_t colour, Vec3 normal, Vec3 a, Vec3 b, Vec3 c) {
  for (const Vec3 place : {a, b, c})
    out->push_back({place, normal, colour});
}

void quad(ShapeList *out, uint32_t colour, Vec3 normal, Vec3 a, Vec3 b, Vec3 c, Vec3 d) {
  for (const Vec3 place : {a, b, c, d})
    out->push_back({place, normal, colour});
}

// A triangle of the ground. a and b are clockwise around the node, so the normal points up.
void facet(ShapeList *out, uint32_t colour, Vec3 node, Vec3 a, Vec3 b) {
  triangle(out, colour, unit(cross(b - node, a - node)), node, a, b);
}

// A vertical face above or below the segment from a to b, up or down to the height `end`.
void vertical_face(ShapeList *out, uint32_t colour, Vec3 a, Vec3 b, double end) {
  const Vec3 normal = unit({b.y - a.y, a.x - b.x, 0});
  const Vec3 below = {b.x, b.y, end};
  triangle(out, colour, normal, a, b, below);
  triangle(out, colour, normal, a, {a.x, a.y, end}, below);
}

double max_site_distance(const Cell &cell) {
  double distance = 0;
  for (int32_t k = cell.count; k-- > 0;)
    distance = std::max(distance, length(site_place(cell, cell.corners[k].site) - cell.place));
  return distance;
}

// The mean height of the three nodes whose cells meet in a corner.
double corner_height(const Cell &cell, int32_t k) {
  const double before = site_place(cell, corner(cell, k - 1).site).z;
  const double after = site_place(cell, corner(cell, k).site).z;
  return (cell.place.z + before + after) / 3;
}

// The ground below an end of the wall towards `site`. `third` is the node of the third cell that
// meets there.
Vec3 wall_foot(const Cell &cell, const VoronoiCorner &end, int32_t site, int32_t third) {
  const Vec3 there = site_place(cell, site);
  if (third < 0) return at_height(end, (cell.place.z + there.z) / 2);
  return at_height(end, plane_height(cell.place, there, site_place(cell, third), end.x, end.y));
}

// A wall from a to b, in the middle of its thickness. Its faces point along v and back; v is not
// horizontal on a slope, so the wall leans.
void wall(ShapeList *out, uint32_t colour, Vec3 a, Vec3 b, Vec3 v) {
  const Vec3 dir = unit({b.x - a.x, b.y - a.y, 0});
  const Vec3 half = half_thickness * v;
  const Vec3 rise = wall_height * up;
  const Vec3 a_front = a + half, a_back = a - half;
  const Vec3 b_front = b + half, b_back = b - half;
  quad(out, colour, up, a_front + rise, b_front + rise, b_back + rise, a_back + rise);
  quad(out, colour, v, a_front, b_front, b_front + rise, a_front + rise);
  quad(out, colour, -1.0 * v, a_back, b_back, b_back + rise, a_back + rise);
  quad(out, colour, dir, b_front, b_front + rise, b_back + rise, b_back);
  quad(out, colour, -1.0 * dir, a_front, a_front + rise, a_back + rise, a_back);
}

// Calls visit(a, b, site) for the ends of each wall that a node draws, and the node behind it.
template <typename Visit> void each_wall(const Cell &cell, const Visit &visit) {
  for (int32_t k = cell.count; k-- > 0;) {
    const VoronoiCorner &from = corner(cell, k);
    const VoronoiCorner &to = corner(cell, k + 1);
    if (from.joined != 0 || from.site <= cell.node) continue;
    if (length({to.x - from.x, to.y - from.y, 0}) < min_wall_length) continue;
    visit(wall_foot(cell, from, from.site, corner(cell, k - 1).site),
          wall_foot(cell, to, from.site, to.site), from.site);
  }
}

} // namespace

void voronoi_outline(ShapeList *out, Maze *maze, int32_t node, uint32_t base) {
  const Cell cell = cell_of(maze, node);
  for (int32_t k = cell.count; k-- > 0;) {
    const uint32_t colour = corner(cell, k).joined == 0 ? base : shaded(base, -shade);
    out->push_back({at_height(corner(cell, k), cell.place.z), {}, colour});
    out->push_back({at_height(corner(cell, k + 1), cell.place.z), {}, colour});
  }
}

void voronoi_box(ShapeList *out, Maze *maze, int32_t node, uint32_t base) {
  const Cell cell = cell_of(maze, node);
  const double z = cell.place.z;
  const double depth = max_site_distance(cell);
  const auto at = [&](int32_t k) { return at_height(corner(cell, k), z); };
  const auto inset = [&](int32_t k) { return at(k) + wall_inset * (cell.place - at(k)); };
  for (int32_t k = cell.count; k-- > 0;)
    triangle(out, base, up, at(0), at(k), at(k + 1));
  for (int32_t k = cell.count; k-- > 0;) {
    if (corner(cell, k).joined != 0) continue;
    vertical_face(out, shaded(base, shade), inset(k), inset(k + 1), z + 0.5 * depth);
  }
  for (int32_t k = cell.count; k-- > 0;)
    vertical_face(out, shaded(base, -shade), at(k), at(k + 1), z - depth);
}

void voronoi_terrain(ShapeList *out, Maze *maze, int32_t node, uint32_t base) {
  const Cell cell = cell_of(maze, node);
  for (int32_t k = cell.count; k-- > 0;) {
    facet(out, base, cell.place, at_height(corner(cell, k), corner_height(cell, k)),
          at_height(corner(cell, k + 1), corner_height(cell, k + 1)));
  }
}

void voronoi_delaunay(ShapeList *out, Maze *maze, int32_t node, uint32_t base) {
  const Cell cell = cell_of(maze, node);
  for (int32_t k = cell.count; k-- > 0;) {
    const int32_t a = corner(cell, k).site;
    const int32_t b = corner(cell, k + 1).site;
    if (a <= node || b <= node) continue;
    facet(out, base, cell.place, site_place(cell, a), site_place(cell, b));
  }
}

void voronoi_walls(ShapeList *out, Maze *maze, int32_t node, uint32_t base) {
  const Cell cell = cell_of(maze, node);
  each_wall(cell, [&](Vec3 a, Vec3 b, int32_t site) {
    wall(out, shaded(base, shade), a, b, unit(site_place(cell, site) - cell.place));
  });
}

void voronoi_add_walls(Box *box, Maze *maze, int32_t node) {
  Box feet = box_empty;
  each_wall(cell_of(maze, node), [&](Vec3 a, Vec3 b, int32_t) {
    box_add(&feet, a);
    box_add(&feet, b);
  });
  constexpr double reach = half_thickness + wall_height;
  box_widen(&feet, {reach, reach, reach});
  box_unite(box, feet);
}

double plane_height(Vec3 a, Vec3 b, Vec3 c, double x, double y) {
  const double determinant = (b.y - c.y) * (a.x - c.x) + (c.x - b.x) * (a.y - c.y);
  const double weight_a = ((b.y - c.y) * (x - c.x) + (c.x - b.x) * (y - c.y)) / determinant;
  const double weight_b = ((c.y - a.y) * (x - c.x) + (a.x - c.x) * (y - c.y)) / determinant;
  return weight_a * a.z + weight_b * b.z + (1 - weight_a - weight_b) * c.z;
}
