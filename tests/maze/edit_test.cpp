#include "maze/edit.h"

#include <algorithm>
#include <map>
#include <vector>

#include <gtest/gtest.h>

#include "maze/pos.h"
#include "scenarios.h"
#include "support/random.h"

// The literal account of a graph: nodes are known by self.colour, edges by their two ends.
struct Account {
  std::vector<uint32_t> labels; // by index
  std::map<std::pair<uint32_t, uint32_t>, uint32_t> edges;
  bool operator==(const Account &) const = default;

  void erase(int32_t a, int32_t b) { edges.erase(std::minmax<uint32_t>({labels[a], labels[b]})); }
  void put(int32_t a, int32_t b, uint32_t colour) {
    edges[std::minmax<uint32_t>({labels[a], labels[b]})] = colour;
  }
};

static Account account_of(const Maze *maze) {
  Account account;
  for (int32_t i = 0; i < maze_count(maze); i++)
    account.labels.push_back(maze_nodes(maze)[i].self.colour);
  for (int32_t i = 0; i < maze_count(maze); i++)
    for (uint32_t r = 0; r < maze_nodes(maze)[i].degree; r++)
      account.put(i, maze_nodes(maze)[i].nbr[r], maze_nodes(maze)[i].edge[r].colour);
  return account;
}

static void join_in_both(Maze *maze, Account *account, int32_t a, int32_t b, uint32_t colour) {
  MazeNode *nodes = maze_nodes(maze);
  if (a == b || MazeNode_row(nodes[a], b) >= 0) return;
  const bool room = std::max(nodes[a].degree, nodes[b].degree) < MAZE_MAX_DEGREE;
  Maze_join(maze, a, b);
  if (room) account->put(a, b, maze_default_colour);
  ASSERT_EQ(account_of(maze), *account);
  if (!room) return;
  for (const auto &[from, to] : {std::pair(a, b), std::pair(b, a)})
    nodes[from].edge[MazeNode_row(nodes[from], to)].colour = colour;
  account->put(a, b, colour);
}

static void delete_in_both(Maze *maze, Account *account, int32_t a) {
  for (int32_t other = 0; other < maze_count(maze); other++)
    account->erase(a, other);
  account->labels[a] = account->labels.back();
  account->labels.pop_back();
  Maze_delete_node(maze, a);
}

TEST(Edit, RandomSequencesAgainstTheAccount) {
  for (uint32_t seed = 0; seed < 20; seed++) {
    rand_seed(seed);
    Maze *maze = scenario_random(16, 40);
    Account account = account_of(maze);
    for (uint32_t step = 0; step < 400 && maze_count(maze) > 1; step++) {
      const int32_t a = rand_int(maze_count(maze)), b = rand_int(maze_count(maze));
      const int32_t what = rand_int(100);
      if (what < 60) {
        join_in_both(maze, &account, a, b, 1000 + step);
      } else if (what < 70) {
        Maze_cut(maze, a, b);
        account.erase(a, b);
      } else if (what < 97) {
        Maze_swap_nodes(maze, a, b);
        std::swap(account.labels[a], account.labels[b]);
      } else {
        delete_in_both(maze, &account, a);
      }
      ASSERT_EQ(account_of(maze), account) << "seed " << seed << " step " << step;
      ASSERT_EQ(scenario_fault(maze), nullptr) << "seed " << seed << " step " << step;
    }
    Maze_destroy(maze, 1);
  }
}

TEST(Edit, LastRowFillsTheHole) {
  Maze *maze = scenario_path(5);
  Maze_join(maze, 1, 4);
  maze_nodes(maze)[1].edge[2].usertime = 4.0;
  Maze_cut(maze, 1, 0);
  EXPECT_EQ(maze_nodes(maze)[1].nbr[0], 4);
  EXPECT_EQ(maze_nodes(maze)[1].edge[0].usertime, 4.0);
  EXPECT_EQ(maze_nodes(maze)[1].nbr[1], 2);
  Maze_destroy(maze, 1);
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
    const Account before = account_of(below);
    scenario_hold(around, 7, below);
    Maze_align_doors(below);
    const Account after = account_of(below);
    EXPECT_EQ(after.edges, before.edges);
    EXPECT_TRUE(std::is_permutation(after.labels.begin(), after.labels.end(), before.labels.begin(),
                                    before.labels.end()));
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
