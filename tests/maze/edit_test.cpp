#include "maze/edit.h"

#include <algorithm>
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
