#include "maze/edit.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <vector>

#include <gtest/gtest.h>

#include "maze/pos.h"
#include "scenarios.h"
#include "support/random.h"

// The literal account of a graph, by index. Nodes are known by self.colour.
struct Node {
  uint32_t label;
  std::vector<std::pair<uint32_t, uint32_t>> rows; // the other's label, the edge's colour
  bool operator==(const Node &) const = default;
};

static std::vector<Node> account_of(const Maze *maze) {
  std::vector<Node> account;
  for (const MazeNode *nodes = maze_nodes(maze), *n = nodes; n < nodes + maze_count(maze); n++) {
    account.push_back({n->self.colour, {}});
    for (uint32_t r = 0; r < n->degree; r++)
      account.back().rows.emplace_back(nodes[n->nbr[r]].self.colour, n->edge[r].colour);
  }
  return account;
}

static void cut_half(Node &from, uint32_t label) {
  for (auto &row : from.rows)
    if (row.first == label) {
      row = from.rows.back();
      return from.rows.pop_back();
    }
}

// Joins nodes that are not joined yet, and gives the edge a colour if there was room for it.
static void join_in_both(Maze *maze, std::vector<Node> &account, int32_t a, int32_t b,
                         uint32_t colour) {
  MazeNode *nodes = maze_nodes(maze);
  if (a == b || MazeNode_row(nodes[a], b) >= 0) return;
  const bool room = std::max(nodes[a].degree, nodes[b].degree) < MAZE_MAX_DEGREE;
  Maze_join(maze, a, b);
  for (const auto &[from, to] : {std::pair(a, b), std::pair(b, a)}) {
    if (!room) continue;
    account[from].rows.emplace_back(account[to].label, colour);
    MazeEdge &edge = nodes[from].edge[nodes[from].degree - 1];
    ASSERT_EQ(edge.colour, maze_default_colour);
    edge.colour = colour;
  }
}

TEST(Edit, RandomSequencesAgainstTheAccount) {
  for (uint32_t seed = 0; seed < 20; seed++) {
    rand_seed(seed);
    Maze *maze = scenario_random(16, 40);
    std::vector<Node> account = account_of(maze);
    for (uint32_t step = 0; step < 400 && maze_count(maze) > 1; step++) {
      const int32_t a = rand_int(maze_count(maze)), b = rand_int(maze_count(maze));
      const int32_t what = rand_int(100);
      if (what < 60) {
        join_in_both(maze, account, a, b, 1000 + step);
      } else if (what < 70) {
        Maze_cut(maze, a, b);
        const uint32_t label = account[a].label;
        cut_half(account[a], account[b].label);
        cut_half(account[b], label);
      } else if (what < 97) {
        Maze_swap_nodes(maze, a, b);
        std::swap(account[a], account[b]);
      } else {
        Maze_delete_node(maze, a);
        for (Node &node : account)
          cut_half(node, account[a].label);
        account[a] = Node(account.back());
        account.pop_back();
      }
      ASSERT_EQ(account_of(maze), account) << "seed " << seed << " step " << step;
      ASSERT_EQ(scenario_fault(maze), nullptr) << "seed " << seed << " step " << step;
    }
    Maze_destroy(maze, 1);
  }
}

TEST(Edit, DoubledEdgesGoAtOnce) {
  Maze *maze = scenario_path(4);
  Maze_join(maze, 1, 0);
  Maze_join(maze, 1, 3);
  Maze_delete_node(maze, 1); // rows 0, 2, 0, 3
  EXPECT_EQ(scenario_fault(maze), nullptr);
  EXPECT_EQ(maze_nodes(maze)[0].degree, 0U);
  EXPECT_EQ(MazeNode_row(maze_nodes(maze)[1], 2), 0); // the former 3, still joined to 2
  Maze_destroy(maze, 1);
}

static double door_distance(const Maze *maze, int32_t node, uint32_t row) {
  const MazeNode *around = maze_nodes(maze->parent);
  const MazeNode &towards = around[around[maze->parentnode].nbr[row]];
  return length(node_position(maze_nodes(maze)[node]) - node_position(towards));
}

TEST(Edit, AlignedDoorsAreNearest) {
  for (uint32_t seed = 0; seed < 50; seed++) {
    rand_seed(seed);
    Maze *around = scenario_random(20, 60), *below = scenario_random(12, 20);
    const std::vector<Node> before = account_of(below);
    scenario_hold(around, 7, below);
    Maze_align_doors(below);
    EXPECT_TRUE(std::ranges::is_permutation(account_of(below), before));
    EXPECT_EQ(scenario_fault(around), nullptr);
    for (uint32_t r = 0; r < maze_nodes(around)[7].degree; r++)
      for (int32_t i = static_cast<int32_t>(r); i < 12; i++)
        ASSERT_LE(door_distance(below, static_cast<int32_t>(r), r), door_distance(below, i, r));
    Maze_destroy(around, 1);
  }
}

TEST(Edit, HighestIndexWinsADoorAmongEquals) {
  Maze *around = scenario_path(2), *below = scenario_random(5, 0);
  for (int32_t i = 0; i < 5; i++)
    MazeNode_init(&maze_nodes(below)[i], 0.5, i == 4 ? 9.0 : 0.0, 0.0);
  maze_nodes(below)[3].self.colour = 33;
  Maze_align_doors(below); // no parent yet
  EXPECT_EQ(maze_nodes(below)[3].self.colour, 33U);
  scenario_hold(around, 0, below);
  Maze_align_doors(below);
  EXPECT_EQ(maze_nodes(below)[0].self.colour, 33U);
  Maze_destroy(around, 1);
}

// How often each pair of nodes, known by self.colour, is joined, seen from either end.
using Joins = std::map<std::pair<uint32_t, uint32_t>, int>;

static Joins joins_of(const Maze *maze) {
  Joins joins;
  for (const Node &node : account_of(maze))
    for (const auto &row : node.rows)
      joins[{node.label, row.first}]++;
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
    Maze *a = scenario_random(seed == 0 ? 0 : 40, 36);
    Maze *b = scenario_random(seed == 1 ? 0 : 24, 12);
    for (int32_t i = 0; i < maze_count(b); i++)
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

TEST(Weld, FullNodeLosesTheEdge) {
  for (const int32_t leaves : {7, 8}) {
    Maze *a = scenario_path(3),
         *b = scenario_random(1 + leaves, 0); // a's node 0 lies on the star's centre
    maze_nodes(a)[2].x = 0.0;                 // and node 2 on its first leaf
    maze_nodes(a)[2].y = 5.0;
    for (int32_t i = 0; i <= leaves; i++) {
      MazeNode_init(&maze_nodes(b)[i], 0.0, 5.0 * i, 0.0);
      if (i > 0) Maze_join(b, 0, i);
    }
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
