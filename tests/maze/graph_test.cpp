// Edits and searches of one maze, as graph.txt has them.
#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "maze/edit.h"
#include "maze/pos.h"
#include "maze/reach.h"
#include "scenarios.h"

// The node's letter when the graph was made.
static char letter_of(const MazeNode &node) {
  return static_cast<char>('a' + node.self.colour);
}

static std::string rows_of(const Maze *maze) {
  std::string text;
  const MazeNode *nodes = maze_nodes(maze);
  for (int32_t i = 0; i < maze_count(maze); i++) {
    text += std::string(i > 0 ? " " : "") + letter_of(nodes[i]);
    for (uint32_t r = 0; r < nodes[i].degree; r++) {
      const MazeEdge &edge = nodes[i].edge[r];
      const bool fresh = edge.usertime == never && edge.roamertime == never;
      text += std::string(r > 0 ? "," : ":") + letter_of(nodes[nodes[i].nbr[r]]);
      text += edge.colour == maze_default_colour && fresh ? '.' : static_cast<char>(edge.colour);
    }
  }
  return text;
}

static std::string connection(const Maze *maze, int32_t a, int32_t b) {
  int32_t out = -999;
  const int32_t length = Maze_connected(maze, a, b, &out);
  EXPECT_EQ(Maze_connected(maze, a, b, nullptr), length);
  return std::to_string(length) + " " + std::to_string(out);
}

static std::string reached_from(const Maze *maze, int32_t a) {
  std::string letters;
  uint8_t *reached = Maze_reach(maze, a);
  for (int32_t i = 0; i < maze_count(maze); i++)
    if (reached[i]) letters += letter_of(maze_nodes(maze)[i]);
  std::free(reached);
  return letters;
}

static std::string component(Maze *maze, int32_t a) {
  Maze *held = Maze_new();
  scenario_hold(maze, a, held);
  Maze *copy = Maze_reachable_copy(maze, a);
  const std::string rows = rows_of(copy);
  const auto holds = [held](const MazeNode &node) { return node.submaze == held; };
  EXPECT_TRUE(std::any_of(maze_nodes(copy), maze_nodes(copy) + maze_count(copy), holds));
  Maze_destroy(copy, 0); // what it holds is shared
  return rows;
}

static std::string result_of(const std::string &step, Maze *maze, int32_t a, int32_t b) {
  if (step == "row") return std::to_string(MazeNode_row(maze_nodes(maze)[a], b));
  if (step == "connected") return connection(maze, a, b);
  if (step == "reach") return reached_from(maze, a);
  if (step == "component") return component(maze, a);
  if (step == "join") Maze_join(maze, a, b);
  if (step == "cut") Maze_cut(maze, a, b);
  if (step == "swap") Maze_swap_nodes(maze, a, b);
  if (step == "delete") Maze_delete_node(maze, a);
  return rows_of(maze);
}

TEST(Graph, EditsAndSearchesGiveWhatTheFileSays) {
  std::ifstream file(VOREL_GRAPHS);
  ASSERT_TRUE(file);
  for (std::string line; std::getline(file, line);) {
    if (line.empty() || line[0] == '#') continue;
    const size_t first = line.find(" | "), second = line.rfind(" | ");
    std::istringstream words(line.substr(first + 3));
    std::string step;
    char a = 0, b = 0;
    words >> step >> a >> b;
    Maze *maze = scenario_graph(line.substr(0, first));
    EXPECT_EQ(result_of(step, maze, a - 'a', b - 'a'), line.substr(second + 3)) << line;
    Maze_destroy(maze, 1);
  }
}
