#include "maze/edit.h"

#include <algorithm>
#include <vector>

#include <gtest/gtest.h>

#include "maze/pos.h"
#include "scenarios.h"
#include "support/random.h"

// A model of a graph. Nodes are known by self.colour, which no renumbering changes.
struct Node {
  uint32_t label;
  std::vector<std::pair<uint32_t, uint32_t>> rows; // the other's label, the edge's colour
  bool operator==(const Node &) const = default;
};

static std::vector<Node> model_of(const Maze *maze) {
  std::vector<Node> model;
  for (const MazeNode *nodes = maze_nodes(maze), *n = nodes; n < nodes + maze_count(maze); n++) {
    model.push_back({n->self.colour, {}});
    for (uint32_t r = 0; r < n->degree; r++)
      model.back().rows.emplace_back(nodes[n->nbr[r]].self.colour, n->edge[r].colour);
  }
  return model;
}

static void cut_half(Node &from, uint32_t label) {
  for (auto &row : from.rows)
    if (row.first == label) {
      row = from.rows.back();
      return from.rows.pop_back();
    }
}

// Joins nodes that are not joined yet, and gives the edge a colour if there was room for it.
static void join_in_both(Maze *maze, std::vector<Node> &model, int32_t a, int32_t b,
                         uint32_t colour) {
  MazeNode *nodes = maze_nodes(maze);
  if (a == b || MazeNode_row(nodes[a], b) >= 0) return;
  const bool room = std::max(nodes[a].degree, nodes[b].degree) < MAZE_MAX_DEGREE;
  Maze_join(maze, a, b);
  for (const auto &[from, to] : {std::pair(a, b), std::pair(b, a)}) {
    if (!room) continue;
    model[from].rows.emplace_back(model[to].label, colour);
    MazeEdge &edge = nodes[from].edge[nodes[from].degree - 1];
    ASSERT_EQ(edge.colour, maze_default_colour);
    ASSERT_EQ(edge.usertime, never);
    ASSERT_EQ(edge.roamertime, never);
    edge.colour = colour;
  }
}

TEST(Edit, RandomSequencesChangeTheGraphAsTheModel) {
  for (uint32_t seed = 0; seed < 20; seed++) {
    rand_seed(seed);
    Maze *maze = scenario_random(16, 40);
    std::vector<Node> model = model_of(maze);
    for (uint32_t step = 0; step < 400 && maze_count(maze) > 1; step++) {
      const int32_t a = rand_int(maze_count(maze)), b = rand_int(maze_count(maze));
      const int32_t what = rand_int(100);
      if (what < 60) {
        join_in_both(maze, model, a, b, 1000 + step);
      } else if (what < 70) {
        Maze_cut(maze, a, b);
        const uint32_t label = model[a].label;
        cut_half(model[a], model[b].label);
        cut_half(model[b], label);
      } else if (what < 97) {
        Maze_swap_nodes(maze, a, b);
        std::swap(model[a], model[b]);
      } else {
        Maze_delete_node(maze, a);
        for (Node &node : model)
          cut_half(node, model[a].label);
        model[a] = Node(model.back());
        model.pop_back();
      }
      ASSERT_EQ(model_of(maze), model) << "seed " << seed << " step " << step;
    }
    Maze_destroy(maze, 1);
  }
}

TEST(Edit, DeletingANodeTakesItsDoubledEdges) {
  Maze *maze = scenario_path(4);
  Maze_join(maze, 1, 0);
  Maze_join(maze, 1, 3);
  Maze_delete_node(maze, 1); // rows 0, 2, 0, 3
  EXPECT_STREQ(scenario_fault(maze), nullptr);
  EXPECT_EQ(maze_nodes(maze)[0].degree, 0U);
  EXPECT_EQ(MazeNode_row(maze_nodes(maze)[1], 2), 0); // the former 3, still joined to 2
  Maze_destroy(maze, 1);
}

// Positions on a small lattice, so that many nodes are equally near a door's neighbour.
TEST(Edit, DoorsAreTheNearestNodesWithTheHighestIndexAmongEquals) {
  for (uint32_t seed = 0; seed < 50; seed++) {
    rand_seed(seed);
    Maze *around = scenario_random(20, 60), *below = scenario_random(12, 20);
    std::vector<std::pair<Vec3, uint32_t>> nodes; // with labels
    for (MazeNode *n = maze_nodes(below), *end = n + 12; n < end; n++) {
      n->x = rand_int(3), n->y = rand_int(3), n->z = rand_int(2);
      nodes.emplace_back(node_position(*n), n->self.colour);
    }
    const std::vector<Node> before = model_of(below);
    Maze_align_doors(below); // without a holder
    ASSERT_EQ(model_of(below), before);
    scenario_hold(around, 7, below);
    Maze_align_doors(below);
    const MazeNode &holder = maze_nodes(around)[7];
    for (size_t door = 0; door < holder.degree; door++) {
      const Vec3 towards = node_position(maze_nodes(around)[holder.nbr[door]]);
      const auto nearest =
          std::min_element(nodes.rbegin(), nodes.rend() - static_cast<long>(door),
                           [&](const auto &a, const auto &b) {
                             return length(a.first - towards) < length(b.first - towards);
                           });
      std::swap(nodes[door], *nearest);
    }
    for (size_t i = 0; i < 12; i++)
      ASSERT_EQ(maze_nodes(below)[i].self.colour, nodes[i].second) << "seed " << seed;
    EXPECT_TRUE(std::ranges::is_permutation(model_of(below), before));
    Maze_destroy(around, 1);
  }
}
