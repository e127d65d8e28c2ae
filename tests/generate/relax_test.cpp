#include "generate/relax.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "generate/carve.h"
#include "generate/curved.h"
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
      const Vec3 mean = node.degree == 0 ? from : sum * (1.0 / node.degree);
      EXPECT_LT(length(node_position(node) - (from * (1 - k) + mean * k)), 1e-12);
      if (i != 7) continue;
      const Maze *inner = maze_nodes(node.submaze)[2].submaze; // its node 2 stood at (2, 0, 0)
      const Vec3 moved = node_position(maze_nodes(inner)[2]) - Vec3{2, 0, 0};
      EXPECT_LT(length(moved - (node_position(node) - from)), 1e-12);
    }
  }
}

TEST(Relax, RepulsionIsTheSumOfAllPairs) {
  for (const int32_t n : {1, 2, 3, 4, 5, 6, 7, 30, 61}) {
    rand_seed(static_cast<uint32_t>(n));
    const OwnedMaze maze(scenario_random(n, 0));
    if (n > 6) maze_nodes(maze.get())[5] = maze_nodes(maze.get())[2]; // one place, two nodes
    const std::vector<Vec3> old = places_of(maze.get());
    const std::vector<Vec3> wanted = literal_repulsion(maze.get());
    Maze_repel(maze.get(), 0.1);
    for (size_t i = 0; i < old.size(); ++i) {
      const Vec3 moved = node_position(maze_nodes(maze.get())[i]) - old[i];
      ASSERT_EQ(is_finite(moved), is_finite(wanted[i])) << "node " << i << " of " << n;
      if (is_finite(moved)) {
        EXPECT_LT(length(moved - wanted[i] * 0.1), 1e-11 * (1 + length(wanted[i])));
      } else {
        EXPECT_TRUE(n > 6 && (i == 2 || i == 5)) << i;
      }
    }
  }
}

// The kernel for pairs runs everywhere; the wide one is what this processor may have run above.
TEST(Relax, BothKernelsAgree) {
  const OwnedMaze disc(Maze_polar(6, 1));
  const std::vector<Vec3> places = places_of(disc.get());
  const std::vector<Vec3> wanted = literal_repulsion(disc.get());
  std::vector<double> x, y, z;
  for (const Vec3 p : places)
    x.push_back(p.x), y.push_back(p.y), z.push_back(p.z);
  std::vector<double> fx(x.size()), fy(x.size()), fz(x.size());
  repel_by_two(
      {maze_count(disc.get()), x.data(), y.data(), z.data(), fx.data(), fy.data(), fz.data()});
  for (size_t i = 0; i < places.size(); ++i)
    EXPECT_LT(length(Vec3{fx[i], fy[i], fz[i]} - wanted[i]), 1e-12);
}

// Smoothing at full step swaps the ends of an edge and drops leaves onto each other; repelling such
// nodes must leave a maze that can still be relaxed, drawn and carved.
TEST(Relax, CoincidentNodesHangNothing) {
  const OwnedMaze star(scenario_path(3));
  for (int32_t step = 0; step < 3; ++step) {
    Maze_smooth(star.get(), 1.0);
    Maze_repel(star.get(), 0.1);
  }
  EXPECT_FALSE(is_finite(node_position(maze_nodes(star.get())[0])));
  Maze_carve(star.get());
  EXPECT_EQ(maze_nodes(star.get())[1].degree, 2u);
}

} // namespace
