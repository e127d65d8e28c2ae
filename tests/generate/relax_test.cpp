#include "generate/relax.h"

#include <gtest/gtest.h>

#include <vector>

#include "generate/owned_maze.h"
#include "generate/repulsion_kernel.h"
#include "generate_reference.h"
#include "scenarios.h"
#include "support/random.h"

namespace {

std::vector<Vec3> places_of(const Maze *maze) {
  std::vector<Vec3> places;
  for (int32_t i = 0; i < maze_count(maze); ++i)
    places.push_back(node_position(maze_nodes(maze)[i]));
  return places;
}

// Nodes that coincide get forces that are not finite.
void expect_near(const std::vector<Vec3> &made, const std::vector<Vec3> &wanted) {
  for (size_t i = 0; i < wanted.size(); ++i) {
    SCOPED_TRACE(testing::Message() << "node " << i << " of " << wanted.size());
    ASSERT_EQ(is_finite(made[i]), is_finite(wanted[i]));
    if (!is_finite(wanted[i])) continue;
    ASSERT_LT(length(made[i] - wanted[i]), 1e-11 * (1 + length(wanted[i])));
  }
}

// A random graph that holds a maze, which holds another, in node 0.
OwnedMaze nested_graph(int32_t nodes, int32_t edges) {
  OwnedMaze maze(scenario_random(nodes, edges));
  scenario_hold(maze.get(), 0, scenario_path(3));
  scenario_hold(maze_nodes(maze.get())[0].submaze, 2, scenario_path(3));
  return maze;
}

// How far the last node of the innermost of these mazes has moved.
Vec3 inner_motion(const OwnedMaze &maze) {
  const Maze *inner = maze_nodes(maze_nodes(maze.get())[0].submaze)[2].submaze;
  return node_position(maze_nodes(inner)[2]) - Vec3{2, 0, 0};
}

TEST(Relax, SmoothingGoesTowardsTheMeanOfTheOldPlaces) {
  rand_seed(1);
  const OwnedMaze maze = nested_graph(20, 17);
  const std::vector<Vec3> old = places_of(maze.get());
  std::vector<Vec3> wanted = old;
  for (size_t i = 0; i < old.size(); ++i) {
    const MazeNode &node = maze_nodes(maze.get())[i];
    for (uint32_t r = 0; r < node.degree; ++r)
      wanted[i] = wanted[i] + 0.3 / node.degree * (old[static_cast<size_t>(node.nbr[r])] - old[i]);
  }
  Maze_smooth(maze.get(), 0.3);
  expect_near(places_of(maze.get()), wanted);
  EXPECT_LT(length(inner_motion(maze) - (wanted[0] - old[0])), 1e-12);
}

std::vector<Vec3> forces_by(void (*kernel)(const RepulsionField &),
                            const std::vector<Vec3> &places) {
  std::vector<double> x, y, z, fx(places.size()), fy(places.size()), fz(places.size());
  for (const Vec3 p : places) {
    x.push_back(p.x);
    y.push_back(p.y);
    z.push_back(p.z);
  }
  kernel({static_cast<int32_t>(places.size()), x.data(), y.data(), z.data(), fx.data(), fy.data(),
          fz.data()});
  std::vector<Vec3> forces;
  for (size_t i = 0; i < places.size(); ++i)
    forces.push_back({fx[i], fy[i], fz[i]});
  return forces;
}

// Both kernels by name: which of them Maze_repel takes depends on the processor.
TEST(Relax, RepulsionIsTheSumOverAllPairs) {
  for (int32_t n = 1; n < 20; ++n) {
    rand_seed(static_cast<uint32_t>(n));
    const OwnedMaze maze = nested_graph(n, 0);
    MazeNode *nodes = maze_nodes(maze.get());
    if (n > 6) nodes[5].x = nodes[2].x, nodes[5].y = nodes[2].y, nodes[5].z = nodes[2].z;
    const std::vector<Vec3> old = places_of(maze.get());
    const std::vector<Vec3> forces = reference_repulsion(maze.get());
    expect_near(forces_by(repel_by_two, old), forces);
    if (__builtin_cpu_supports("avx2")) expect_near(forces_by(repel_by_four, old), forces);
    std::vector<Vec3> wanted = old;
    for (size_t i = 0; i < old.size(); ++i)
      wanted[i] = old[i] + 0.1 * forces[i];
    Maze_repel(maze.get(), 0.1);
    expect_near(places_of(maze.get()), wanted);
    EXPECT_LT(length(inner_motion(maze) - 0.1 * forces[0]), 1e-10 * (1 + length(forces[0])));
  }
}

} // namespace
