// The cells of mazes against their reference implementation and against the Voronoi diagram of a
// general library, which knows no walls, heights or limits of distance, in one process on the same
// sites. Run by scripts/bench.

#include <boost/polygon/voronoi.hpp>
#include <malloc.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "generate/carve.h"
#include "generate/topologies.h"
#include "generate/transform.h"
#include "measure.h"
#include "render/voronoi_geometry.h"
#include "support/random.h"
#include "voronoi_reference.h"

namespace {

using Sites = std::vector<boost::polygon::point_data<int32_t>>;

// The library takes whole coordinates only.
Sites whole_sites(const Maze *maze) {
  Sites sites;
  for (int32_t i = 0; i < maze_count(maze); ++i) {
    const Vec3 p = node_position(maze_nodes(maze)[i]) * 10000.0;
    sites.emplace_back(static_cast<int32_t>(p.x), static_cast<int32_t>(p.y));
  }
  return sites;
}

bool is_same(const VoronoiCorner &a, const VoronoiCorner &b) {
  return a.site == b.site && a.joined == b.joined && std::abs(a.x - b.x) < 1e-9 &&
         std::abs(a.y - b.y) < 1e-9;
}

// Both must give the same cells, or their times mean nothing.
void check_cells(const std::string &name, Maze *maze) {
  voronoi_build(maze, 1);
  const auto reference = reference_voronoi(maze, 1);
  for (size_t i = 0; i < reference.size(); ++i) {
    const auto [corners, count] = voronoi_cell(maze, static_cast<int32_t>(i));
    if (std::equal(corners, corners + count, reference[i].begin(), reference[i].end(), is_same))
      continue;
    std::fprintf(stderr, "%s: the cells of node %zu differ\n", name.c_str(), i);
    std::exit(1);
  }
}

void measure_cells(const std::string &name, Maze *maze, bool flat) {
  Maze_carve(maze);
  Maze_scale(maze, 2.5, 0);
  check_cells(name, maze);
  measure_add({name + "/ours", [maze] { voronoi_build(maze, 1); }});
  measure_add({name + "/reference", [maze] { measure_keep(reference_voronoi(maze, 1).data()); }});
  if (!flat) return; // to the library, sites above one another are one
  const auto *sites = new Sites(whole_sites(maze));
  measure_add({name + "/boost_polygon", [sites] {
                 boost::polygon::voronoi_diagram<double> diagram;
                 boost::polygon::construct_voronoi(sites->begin(), sites->end(), &diagram);
                 const size_t count = diagram.num_cells();
                 measure_keep(&count);
               }});
}

Maze *generic_plane(int32_t side) {
  Maze *maze = Maze_plane_xy(side, side);
  for (int32_t i = 0; i < maze_count(maze); ++i) {
    maze_nodes(maze)[i].x += rand_real(0.6);
    maze_nodes(maze)[i].y += rand_real(0.6);
  }
  return maze;
}

} // namespace

int main(int argc, char **argv) {
  // Freed memory is kept, so that no time goes into fetching pages.
  mallopt(M_MMAP_MAX, 0);
  mallopt(M_TRIM_THRESHOLD, INT_MAX);
  rand_seed(1);
  measure_cells("cells_hexagon", Maze_hexagon(41), true);
  measure_cells("cells_plane", Maze_plane_xy(71, 71), true);
  measure_cells("cells_polar", Maze_polar(50, 1), true);
  measure_cells("cells_generic", generic_plane(71), true);
  measure_cells("cells_large", generic_plane(316), true);
  measure_cells("cells_sphere", Maze_sphere(30), false);
  measure_cells("cells_torus", Maze_torus(20, 10), false);
  measure_cells("cells_box", Maze_box(40, 40, 40), false);
  measure_cells("cells_block", Maze_grid3d(20, 20, 20), false);
  measure_all(argc, argv);
  return 0;
}
