#include "generate/paint.h"

#include <gtest/gtest.h>

#include "generate/owned_maze.h"
#include "scenarios.h"

namespace {

// What the row from node 0 to node 1 and node 1 itself look like on three levels.
void expect_colours(const ThreeLevels &t, uint32_t edge, uint32_t node, uint32_t below) {
  EXPECT_EQ(maze_nodes(t.root)[0].edge[0].colour, edge);
  EXPECT_EQ(maze_nodes(t.root)[1].edge[0].colour, edge);
  EXPECT_EQ(maze_nodes(t.root)[1].self.colour, node);
  EXPECT_EQ(maze_nodes(t.n3)[0].edge[0].colour, below == node ? edge : below);
  EXPECT_EQ(maze_nodes(t.n3)[1].self.colour, below);
}

TEST(Paint, ReachesTheLevelsAskedFor) {
  const ColourFunction doubled_x = [](Vec3 p) { return static_cast<uint32_t>(2 * p.x); };
  for (const int32_t recursive : {0, 1}) {
    const ThreeLevels t = scenario_three_levels();
    const OwnedMaze tree(t.root);
    Maze_paint(t.root, 0x123456, recursive);
    expect_colours(t, 0x123456, 0x123456, recursive != 0 ? 0x123456 : maze_default_colour);
    Maze_paint(t.root, maze_default_colour, 1);
    Maze_colour_field(t.root, doubled_x, recursive);
    expect_colours(t, 1, 2, recursive != 0 ? 2 : maze_default_colour);
  }
  const double crest = 15.70796326794897; // a quarter of the period of 20 pi
  EXPECT_EQ(colour_field_sine({crest, 0, -crest}), 0x804000u);
  EXPECT_EQ(colour_field_sine({-crest, 0, crest}), 0x004080u);
}

} // namespace
