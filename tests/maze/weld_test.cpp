#include <cmath>
#include <map>

#include <gtest/gtest.h>

#include "maze/edit.h"
#include "maze/pos.h"
#include "scenarios.h"
#include "support/random.h"

// How often each pair of nodes, known by self.colour, is joined, seen from either end.
using Joins = std::map<std::pair<uint32_t, uint32_t>, int>;

static Joins joins_of(const Maze *maze) {
  Joins joins;
  const MazeNode *nodes = maze_nodes(maze);
  for (int32_t i = 0; i < maze_count(maze); i++)
    for (uint32_t r = 0; r < nodes[i].degree; r++)
      joins[{nodes[i].self.colour, nodes[nodes[i].nbr[r]].self.colour}]++;
  return joins;
}

static const MazeNode *partner(const Maze *b, const MazeNode &node) {
  const MazeNode *best = nullptr;
  double nearest = 0.75;
  for (int32_t j = 0; j < maze_count(b); j++) {
    const double distance = length(node_position(maze_nodes(b)[j]) - node_position(node));
    if (distance <= nearest) best = &maze_nodes(b)[j], nearest = distance;
  }
  return best;
}

// The joins after a weld in which no node gets full.
static Joins expected_joins(const Maze *a, const Maze *b, int32_t *survivors) {
  Joins joins = joins_of(b);
  *survivors = maze_count(b);
  const MazeNode *nodes = maze_nodes(a);
  for (int32_t i = 0; i < maze_count(a); i++) {
    const MazeNode *mine = partner(b, nodes[i]);
    *survivors += mine == nullptr;
    for (uint32_t r = 0; r < nodes[i].degree; r++) {
      const MazeNode &next = nodes[nodes[i].nbr[r]];
      const MazeNode *theirs = partner(b, next);
      if (mine && theirs) continue;
      joins[{(mine ? *mine : nodes[i]).self.colour, (theirs ? *theirs : next).self.colour}]++;
    }
  }
  return joins;
}

TEST(Weld, RandomGraphs) {
  int doubled = 0, carried = 0;
  for (uint32_t seed = 0; seed < 60; seed++) {
    rand_seed(seed);
    Maze *a = scenario_random(40, 36), *b = scenario_random(24, 12);
    for (int32_t i = 0; i < 24; i++)
      maze_nodes(b)[i].self.colour += 100;
    uint32_t colour = 1;
    scenario_paint(a, &colour);
    Maze *welded = Maze_weld(a, b);
    int32_t survivors = 0;
    const Joins joins = expected_joins(a, b, &survivors);
    ASSERT_EQ(joins_of(welded), joins) << seed;
    ASSERT_EQ(maze_count(welded), survivors) << seed;
    ASSERT_EQ(scenario_fault(welded, true), nullptr) << seed;
    for (const auto &[ends, count] : joins) {
      doubled += count > 1;
      carried += ends.first < 100 && ends.second >= 100;
    }
    for (Maze *maze : {a, b, welded})
      Maze_destroy(maze, 1);
  }
  EXPECT_GT(doubled, 5); // the graphs do meet what they are here for
  EXPECT_GT(carried, 100);
}

// Node 0 at the origin, joined to leaves along the y axis, 5 apart.
static Maze *star(int32_t leaves) {
  Maze *maze = scenario_random(1 + leaves, 0);
  for (int32_t i = 0; i <= leaves; i++)
    MazeNode_init(&maze_nodes(maze)[i], 0.0, 5.0 * i, 0.0);
  for (int32_t i = 1; i <= leaves; i++)
    Maze_join(maze, 0, i);
  return maze;
}

TEST(Weld, ManyNodesOntoOne) {
  // Three leaves of node 3 fall onto b's only node; the holes pull node 3 itself to the front.
  Maze *a = star(3), *b = scenario_path(1);
  Maze_swap_nodes(a, 0, 3);
  for (int32_t i = 0; i < 3; i++)
    maze_nodes(a)[i].y = 0.1 * i;
  maze_nodes(a)[3].y = 10.0;
  for (uint32_t r = 0; r < 3; r++)
    maze_nodes(a)[3].edge[r].colour = 0x111111 * (r + 1);
  Maze *welded = Maze_weld(a, b);
  ASSERT_EQ(maze_count(welded), 2);
  EXPECT_EQ(scenario_fault(welded, true), nullptr);
  for (int32_t i = 0; i < 2; i++) {
    EXPECT_EQ(maze_nodes(welded)[i].degree, 3U);
    // The colour of the row carried last, which was the first, lies on all three.
    for (uint32_t r = 0; r < maze_nodes(welded)[i].degree; r++)
      EXPECT_EQ(maze_nodes(welded)[i].edge[r].colour, 0x111111U);
  }
  for (Maze *maze : {a, b, welded})
    Maze_destroy(maze, 1);
}

TEST(Weld, FullNodeLosesTheEdge) {
  for (const int32_t leaves : {7, 8}) {
    Maze *a = scenario_path(3), *b = star(leaves); // a's node 0 lies on the star's centre
    maze_nodes(a)[2].x = 0.0;                      // and node 2 on its first leaf
    maze_nodes(a)[2].y = 5.0;
    Maze_join(a, 1, 0); // doubled, as an earlier weld leaves it: the rows of 1 are 0, 2, 0
    Maze *welded = Maze_weld(a, b);
    ASSERT_EQ(maze_count(welded), leaves + 2);
    EXPECT_EQ(scenario_fault(welded, true), nullptr);
    uint32_t degrees = 0;
    for (int32_t i = 0; i < maze_count(welded); i++)
      degrees += maze_nodes(welded)[i].degree;
    EXPECT_EQ(degrees, 18U); // with seven leaves one half of the doubled edge found room
    for (Maze *maze : {a, b, welded})
      Maze_destroy(maze, 1);
  }
}

TEST(Weld, ReachesToThreeQuarters) {
  for (const double y : {0.75, std::nextafter(0.75, 1.0)}) {
    Maze *a = scenario_path(1), *b = scenario_path(1);
    maze_nodes(b)[0].y = y;
    Maze *welded = Maze_weld(a, b);
    EXPECT_EQ(maze_count(welded), y > 0.75 ? 2 : 1);
    EXPECT_EQ(maze_nodes(welded)[maze_count(welded) - 1].y, y);
    for (Maze *maze : {a, b, welded})
      Maze_destroy(maze, 1);
  }
}

TEST(Weld, EmptySides) {
  Maze *none = Maze_new(), *path = scenario_path(3);
  for (Maze *welded : {Maze_weld(none, path), Maze_weld(path, none)}) {
    EXPECT_EQ(maze_count(welded), 3);
    EXPECT_EQ(MazeNode_row(maze_nodes(welded)[1], 2), 1);
    EXPECT_EQ(scenario_fault(welded), nullptr);
    Maze_destroy(welded, 1);
  }
  Maze_destroy(none, 1);
  Maze_destroy(path, 1);
}
