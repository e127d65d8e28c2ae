#include "maze/reach.h"

#include <cstdlib>
#include <string>

#include <gtest/gtest.h>

#include "maze/edit.h"
#include "same_tree.h"
#include "scenarios.h"

// A ring of six with a tail, a path of three, and two single nodes.
static const char *const graph = "ab bc cd de ef fa fg gh ij jk l m";

TEST(Reach, ConnectedGivesTheLengthOfTheWayOrTheSizeOfTheSideThatClosedFirst) {
  const struct {
    char from, to;
    int32_t length, out;
  } ways[] = {
      {'a', 'a', 1, 0}, {'a', 'b', 1, 1},  {'c', 'a', 2, 2}, {'a', 'd', 3, 3},
      {'d', 'h', 4, 4}, {'c', 'h', 5, 5},  {'k', 'i', 2, 2}, {'a', 'j', 0, -3},
      {'i', 'a', 0, 3}, {'b', 'l', 0, -1}, {'l', 'j', 0, 1}, {'l', 'm', 0, 1},
  };
  Maze *maze = scenario_graph(graph);
  for (const auto &way : ways) {
    SCOPED_TRACE(std::string("from ") + way.from + " to " + way.to);
    int32_t out = -999;
    EXPECT_EQ(Maze_connected(maze, way.from - 'a', way.to - 'a', &out), way.length);
    EXPECT_EQ(out, way.out);
    EXPECT_EQ(Maze_connected(maze, way.from - 'a', way.to - 'a', nullptr), way.length);
  }
  Maze_destroy(maze, 1);
}

TEST(Reach, CopiesKeepWhatCanBeReached) {
  Maze *maze = scenario_graph(graph), *wanted = scenario_graph(graph);
  for (int32_t i = maze_count(wanted); i-- > 0;)
    if (i < 8 || i > 10) Maze_delete_node(wanted, i);
  uint8_t *reached = Maze_reach(maze, 9);
  std::string bytes;
  for (int32_t i = 0; i < maze_count(maze); i++)
    bytes += reached[i] ? '1' : '0';
  EXPECT_EQ(bytes, "0000000011100");
  std::free(reached);
  Maze *copy = Maze_reachable_copy(maze, 9);
  EXPECT_EQ(tree_difference(copy, wanted), "");
  Maze_destroy(copy, 0);
  Maze_destroy(wanted, 1);
  scenario_hold(maze, 11, Maze_new());
  copy = Maze_reachable_copy(maze, 11);
  EXPECT_EQ(maze_nodes(copy)[0].submaze, maze_nodes(maze)[11].submaze) << "not shared";
  Maze_destroy(copy, 0);
  Maze_destroy(maze, 1);
}
