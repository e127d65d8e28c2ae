#include "generate/relax.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "generate/owned_maze.h"
#include "generate/repulsion_kernel.h"
#include "literal.h"
#include "scenarios.h"
#include "support/random.h"

namespace {

std::vector<Vec3> places_of(const Maze *maze) {
  std::vector<Vec3> places;
  for (int32_t i = 0; i < maze_count(maze); ++i)
    places.push_back(node_position(maze_nodes(maze)[i]));
  return places;
}

TEST(Relax, SmoothingGoesFromTheOldPlacesAndTakesAllBelowAlong) {
  for (uint32_t seed = 1; seed <= 40; ++seed) {
    rand_seed(seed);
    const OwnedMaze maze(scenario_random(20, 25));
    scenario_hold(maze.get(), 7, scenario_path(3));
    scenario_hold(maze_nodes(maze.get())[7].submaze, 2, scenario_path(3));
    const std::vector<Vec3> old = places_of(maze.get());
    const double k = seed % 4 == 0 ? 1.0 : rand_real(1.0);
    Maze_smooth(maze.get(), k);
    for (int32_t i = 0; i < 20; ++i) {
      const MazeNode &node = maze_nodes(maze.get())[i];
      Vec3 sum = {};
      for (uint32_t r = 0; r < node.degree; ++r)
        sum = sum + old[static_cast<size_t>(node.nbr[r])];
      const Vec3 from = old[static_cast<size_t>(i)];
      const Vec3 mean = node.degree == 0 ? from : sum / node.degree;
      EXPECT_EQ(length(node_position(node) - (from + (mean - from) * k)), 0.0);
      if (i != 7) continue;
      const Maze *inner = maze_nodes(node.submaze)[2].submaze; // its node 2 stood at (2, 0, 0)
      const Vec3 moved = node_position(maze_nodes(inner)[2]) - Vec3{2, 0, 0};
      EXPECT_LT(length(moved - (node_position(node) - from)), 1e-12);
    }
  }
}

// Both kernels by name as well: which of them Maze_repel takes depends on the processor.
std::vector<Vec3> forces_by(void (*kernel)(const RepulsionField &),
                            const std::vector<Vec3> &places) {
  std::vector<double> x, y, z, fx(places.size()), fy(places.size()), fz(places.size());
  for (const Vec3 p : places)
    x.push_back(p.x), y.push_back(p.y), z.push_back(p.z);
  kernel({static_cast<int32_t>(places.size()), x.data(), y.data(), z.data(), fx.data(), fy.data(),
          fz.data()});
  std::vector<Vec3> forces;
  for (size_t i = 0; i < places.size(); ++i)
    forces.push_back({fx[i], fy[i], fz[i]});
  return forces;
}

void expect_same_forces(const std::vector<Vec3> &forces, const std::vector<Vec3> &wanted) {
  for (size_t i = 0; i < wanted.size(); ++i) {
    ASSERT_EQ(is_finite(forces[i]), is_finite(wanted[i]))
        << "node " << i << " of " << wanted.size();
    if (!is_finite(wanted[i])) continue;
    EXPECT_LT(length(forces[i] - wanted[i]), 1e-11 * (1 + length(wanted[i])));
  }
}

TEST(Relax, RepulsionIsTheSumOfAllPairsAndTakesAllBelowAlong) {
  for (int32_t n = 1; n < 40; ++n) {
    rand_seed(static_cast<uint32_t>(n));
    const OwnedMaze maze(scenario_random(n, 0));
    scenario_hold(maze.get(), 0, scenario_path(3)); // its node 2 stands at (2, 0, 0)
    MazeNode *nodes = maze_nodes(maze.get());
    if (n > 6) nodes[5].x = nodes[2].x, nodes[5].y = nodes[2].y, nodes[5].z = nodes[2].z;
    const std::vector<Vec3> old = places_of(maze.get());
    const std::vector<Vec3> wanted = literal_repulsion(maze.get());
    expect_same_forces(forces_by(repel_by_two, old), wanted);
    if (__builtin_cpu_supports("avx2")) expect_same_forces(forces_by(repel_by_four, old), wanted);
    Maze_repel(maze.get(), 0.125);
    std::vector<Vec3> moved;
    for (size_t i = 0; i < old.size(); ++i)
      moved.push_back((node_position(nodes[i]) - old[i]) * 8);
    const Vec3 inner = node_position(maze_nodes(nodes[0].submaze)[2]) - Vec3{2, 0, 0};
    EXPECT_LT(length(inner * 8 - wanted[0]), 1e-10 * (1 + length(wanted[0])));
    expect_same_forces(moved, wanted);
    EXPECT_EQ(is_finite(moved[static_cast<size_t>(n > 6 ? 5 : 0)]), n <= 6);
  }
}

} // namespace
