#include "voronoi_reference.h"

#include <algorithm>

#include "bucket_grid.h"
#include "generate/transform.h"
#include "maze/pos.h"

namespace {

using Cell = std::vector<VoronoiCorner>;

VoronoiCorner between(const VoronoiCorner &p, const VoronoiCorner &q, double a, double b) {
  const double t = a / (a - b);
  return {p.x + t * (q.x - p.x), p.y + t * (q.y - p.y), p.site, p.joined};
}

Cell cut(const Cell &cell, Vec3 p, Vec3 q, int32_t site, int32_t joined) {
  const int32_t n = static_cast<int32_t>(cell.size());
  const auto at = [&](int32_t k) { return cell[static_cast<size_t>(k % n)]; };
  const auto value = [&](int32_t k) {
    return (at(k).x - (p.x + q.x) / 2) * (q.x - p.x) + (at(k).y - (p.y + q.y) / 2) * (q.y - p.y);
  };
  int32_t leave = -1, enter = -1;
  for (int32_t k = n - 1; k >= 0; k--) {
    const double a = value(k), b = value(k + 1);
    if (b >= 1e-6 && a < 1e-6) leave = k;
    if (b < 1e-6 && a >= 1e-6) enter = k;
  }
  if (leave < 0 || enter < 0) return n > 0 && value(0) >= 1e-6 ? Cell{} : cell;
  Cell kept;
  for (int32_t k = (enter + 1) % n; k != leave; k = (k + 1) % n)
    kept.push_back(at(k));
  kept.push_back(at(leave));
  kept.push_back(between(at(leave), at(leave + 1), value(leave), value(leave + 1)));
  kept.back().site = site;
  kept.back().joined = joined;
  kept.push_back(between(at(enter), at(enter + 1), value(enter), value(enter + 1)));
  return kept;
}

} // namespace

std::vector<Cell> reference_voronoi(Maze *maze, int32_t across_levels) {
  BucketGrid grid;
  Vec3 low, high;
  Maze_bounds(maze, &low, &high);
  bucket_grid_new(&grid, low, high, maze_count(maze));
  const MazeNode *nodes = maze_nodes(maze);
  for (int32_t i = maze_count(maze); i-- > 0;)
    bucket_grid_add(&grid, node_position(nodes[i]), i);
  std::vector<Cell> cells(maze->nodes.count);
  for (int32_t i = maze_count(maze); i-- > 0;) {
    const Vec3 p = node_position(nodes[i]);
    Pos ends[pos_max_edges];
    const int32_t all = across_levels != 0 ? Pos_alledges(maze, i, ends, nullptr) : 0;
    std::vector<int32_t> near;
    for (int32_t e = 0; e < all; e++)
      if (ends[e].maze == maze) near.push_back(ends[e].node);
    if (across_levels == 0) near.assign(nodes[i].nbr, nodes[i].nbr + nodes[i].degree);
    double m = 0;
    for (const int32_t j : near)
      m = std::max(m, length(node_position(nodes[j]) - p));
    GrowList found;
    bucket_grid_ball(&found, &grid, p, 5 * m);
    const double h = 3 * m;
    Cell cell = {{p.x - h, p.y - h, -1, -1},
                 {p.x - h, p.y + h, -1, -1},
                 {p.x + h, p.y + h, -1, -1},
                 {p.x + h, p.y - h, -1, -1}};
    for (uint32_t row = found.count; row-- > 0;) {
      const int32_t j = rows<int32_t>(found)[row];
      const bool joined = std::count(near.begin(), near.end(), j) > 0;
      if (j != i) cell = cut(cell, p, node_position(nodes[j]), j, joined ? 1 : 0);
    }
    GrowList_free(&found);
    cells[static_cast<size_t>(i)] = cell;
  }
  bucket_grid_free(&grid);
  return cells;
}
