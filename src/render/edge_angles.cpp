#include "render/edge_angles.h"

#include <cmath>
#include <memory>
#include <numbers>
#include <vector>

#include "maze/attachment.h"
#include "maze/attachment_names.h"
#include "maze/pos.h"

namespace {

// Two roads at a smaller angle, in radians, have no common corner, since it would be too far away.
constexpr double min_corner_angle = 0.01;

// The rows of all nodes. A row is written when it is first needed.
struct Rows {
  Maze *maze;
  std::unique_ptr<EdgeAngleRec[]> recs;
  std::vector<bool> built; // by node
  bool complete;           // the rows of all plain nodes are built
};

void destroy(intptr_t data, Maze *) {
  delete reinterpret_cast<Rows *>(data);
}

// `from` is a plain node, so an edge slot of the same maze that leads to it has the index of the
// list's entry.
int32_t find_back(Pos from, Pos to) {
  if (to.maze == from.maze) return MazeNode_find_slot(maze_nodes(to.maze)[to.node], from.node);
  Pos list[pos_max_edges];
  for (int32_t k = Pos_alledges(to.maze, to.node, list, nullptr); k-- > 0;) {
    if (Pos_equal(list[k], from)) return k;
  }
  return -1;
}

bool is_vertical(Vec3 way) {
  return way.x == 0 && way.y == 0;
}

// The point at `along` on the left side of a road in the direction `way`.
Vec3 left_corner(Vec3 way, double along, double halfwidth) {
  return {way.x * along - way.y * halfwidth, way.x * halfwidth + way.y * along, 0};
}

// How far along a road its left side meets the right side of the next road anticlockwise. The
// remainder keeps angles small across the jump from -pi to pi.
double corner_distance(double angle, double next_angle, double halfwidth) {
  const double delta = std::remainder(next_angle - angle, 2.0 * std::numbers::pi);
  if (std::abs(delta) <= min_corner_angle) return 0;
  return halfwidth * std::tan(std::numbers::pi / 2.0 - delta / 2.0);
}

// The rows in order of their angles. An insertion sort is safe with NaN angles.
void sort_by_angle(const EdgeAngleRec *recs, int32_t count, int32_t *order) {
  for (int32_t i = 0; i < count; i++) {
    int32_t place = i;
    for (; place > 0 && recs[i].angle < recs[order[place - 1]].angle; place--) {
      order[place] = order[place - 1];
    }
    order[place] = i;
  }
}

// The road of a dead end has a square end at its node.
void cut_square(EdgeAngleRec *rec, Vec3 way, double halfwidth) {
  rec->trim1 = rec->trim2 = 0;
  rec->corner1 = left_corner(way, 0, halfwidth);
  rec->corner2 = left_corner(way, 0, -halfwidth);
}

// A right corner is the left one of the previous road. A vertical road has neither.
void mitre(EdgeAngleRec *recs, const Vec3 *ways, int32_t count, double halfwidth) {
  int32_t order[pos_max_edges];
  sort_by_angle(recs, count, order);
  for (int32_t s = count - 1; s >= 0; s--) {
    EdgeAngleRec &rec = recs[order[s]];
    const EdgeAngleRec &next = recs[order[(s + 1) % count]];
    rec.trim1 = corner_distance(rec.angle, next.angle, halfwidth);
    rec.corner1 = left_corner(ways[order[s]], rec.trim1, halfwidth);
  }
  for (int32_t s = count - 1; s >= 0; s--) {
    EdgeAngleRec &rec = recs[order[s]];
    const EdgeAngleRec &before = recs[order[(s + count - 1) % count]];
    rec.trim2 = before.trim1;
    rec.corner2 = is_vertical(ways[order[s]]) ? Vec3{0, 0, 0} : before.corner1;
  }
}

void build_node(Pos here, EdgeAngleRec *recs) {
  Pos ends[pos_max_edges];
  Vec3 ways[pos_max_edges];
  const Vec3 p = Pos_position(here);
  const int32_t count = Pos_alledges(here.maze, here.node, ends, nullptr);
  for (int32_t k = count - 1; k >= 0; k--) {
    const Vec3 d = Pos_position(ends[k]) - p;
    ways[k] = horizontal_direction(d);
    recs[k] = {};
    recs[k].index = k;
    recs[k].backindex = find_back(here, ends[k]);
    recs[k].angle = is_vertical(ways[k]) ? 0 : std::atan2(d.y, d.x);
  }
  if (count == 1) {
    cut_square(recs, ways[0], here.maze->halfwidth);
  } else {
    mitre(recs, ways, count, here.maze->halfwidth);
  }
}

// Makes room for all rows without writing to it, since most may stay unused.
void allocate(Rows *rows) {
  if (rows->recs == nullptr) rows->recs.reset(new EdgeAngleRec[rows->built.size() * pos_max_edges]);
}

const EdgeAngleRec *node_rows(Rows *rows, int32_t node) {
  allocate(rows);
  EdgeAngleRec *recs = rows->recs.get() + static_cast<size_t>(node) * pos_max_edges;
  if (rows->built[static_cast<size_t>(node)]) return recs;
  build_node({rows->maze, node}, recs);
  rows->built[static_cast<size_t>(node)] = true;
  return recs;
}

const EdgeAngleRec *all_rows(Rows *rows) {
  for (int32_t i = maze_count(rows->maze); i-- > 0 && !rows->complete;)
    if (maze_nodes(rows->maze)[i].submaze == nullptr) node_rows(rows, i);
  rows->complete = true;
  allocate(rows);
  return rows->recs.get();
}

void compute_deferred(intptr_t data, int32_t node) {
  node_rows(reinterpret_cast<Rows *>(data), node);
}

Rows *attach(Maze *maze) {
  auto *rows = new Rows{maze, {}, std::vector<bool>(maze->nodes.count), false};
  Attachment_add(maze, attachment_edge_angles, reinterpret_cast<intptr_t>(rows), destroy, nullptr,
                 compute_deferred);
  return rows;
}

Rows *find_or_attach(Maze *maze) {
  const intptr_t found = Attachment_find(maze, attachment_edge_angles);
  return found != 0 ? reinterpret_cast<Rows *>(found) : attach(maze);
}

} // namespace

Vec3 horizontal_direction(Vec3 d) {
  const double size = std::hypot(d.x, d.y);
  if (size == 0) return {0, 0, 0};
  return {d.x / size, d.y / size, 0};
}

const EdgeAngleRec *edgeanglerecs(Maze *maze) {
  return all_rows(find_or_attach(maze));
}

const EdgeAngleRec *edgeanglerecs_build(Maze *maze) {
  return all_rows(attach(maze));
}

void edge_angles_defer(Maze *maze) {
  find_or_attach(maze);
}

const EdgeAngleRec *edge_angles_at(Pos pos) {
  return node_rows(find_or_attach(pos.maze), pos.node);
}
