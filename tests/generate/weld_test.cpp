#include <gtest/gtest.h>

#include <limits>

#include "generate/owned_maze.h"
#include "literal.h"
#include "maze/edit.h"
#include "scenarios.h"
#include "support/random.h"

namespace {

// Onto a lattice so narrow that many places coincide or are equally near, some at just 0.75.
void place_on_lattice(Maze *maze, int32_t spread) {
  for (int32_t i = 0; i < maze_count(maze); ++i)
    for (double *c : {&maze_nodes(maze)[i].x, &maze_nodes(maze)[i].y, &maze_nodes(maze)[i].z})
      *c = 0.25 * rand_int(spread * 4) - 3;
}

void place_strangely(Maze *maze) {
  const double strange[] = {std::numeric_limits<double>::quiet_NaN(),
                            std::numeric_limits<double>::infinity(), 1e300, -1e9, 2e9};
  for (const double c : strange)
    maze_nodes(maze)[rand_int(maze_count(maze))].y = c;
}

// Small pairs and large ones are searched in different ways.
TEST(Weld, IsTheLiteralWeld) {
  for (uint32_t seed = 1; seed <= 400; ++seed) {
    rand_seed(seed);
    const int32_t n = 20 + rand_int(seed % 4 == 0 ? 20 : 150);
    const OwnedMaze a(scenario_random(n, 2 * n)), b(scenario_random(n, 2 * n));
    const int32_t spread = 2 + rand_int(10);
    place_on_lattice(a.get(), spread);
    place_on_lattice(b.get(), spread);
    if (seed % 5 == 0) place_strangely(a.get());
    if (seed % 7 == 0) place_strangely(b.get());
    const OwnedMaze made(Maze_weld(a.get(), b.get())), wanted(literal_weld(a.get(), b.get()));
    ASSERT_STREQ(literal_difference(made.get(), wanted.get()), nullptr) << "seed " << seed;
    ASSERT_STREQ(scenario_fault(made.get(), true), nullptr) << "seed " << seed;
  }
}

} // namespace
