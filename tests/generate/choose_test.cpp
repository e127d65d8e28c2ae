#include "generate/choose.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "generate/nest.h"
#include "generate/owned_maze.h"
#include "generate/topology.h"
#include "literal.h"
#include "maze/pos.h"
#include "scenarios.h"
#include "support/random.h"
#include "support/strings.h"

namespace {

int64_t plain_nodes(const Maze *maze) {
  int64_t plain = 0;
  for (int32_t i = 0; i < maze_count(maze); ++i)
    plain += maze_nodes(maze)[i].submaze ? plain_nodes(maze_nodes(maze)[i].submaze) : 1;
  return plain;
}

// How many places a walk from `start` comes to, and how many ways lead on from them.
std::pair<int64_t, int64_t> walk(Pos start) {
  std::set<std::pair<Maze *, int32_t>> seen = {{start.maze, start.node}};
  int64_t ways = 0;
  for (std::vector<Pos> todo = {start}; !todo.empty();) {
    Pos to[pos_max_edges];
    const Pos here = todo.back();
    todo.pop_back();
    const int32_t count = Pos_alledges(here.maze, here.node, to, nullptr);
    ways += count;
    for (int32_t k = count; k-- > 0;)
      if (seen.emplace(to[k].maze, to[k].node).second) todo.push_back(to[k]);
  }
  return {static_cast<int64_t>(seen.size()), ways};
}

Maze *innermost(Maze *maze) {
  while (maze_nodes(maze)[0].submaze)
    maze = maze_nodes(maze)[0].submaze;
  return maze;
}

// Every draw in its order: both go through the same sequence and end at the same place in it. Each
// plain kind is met three times; of the nested ones, whose rooms are of all topologies, one has
// flat and one slow colours, two have the wave and one the warp.
TEST(Choose, EveryModeIsTheLiteralTree) {
  std::map<int32_t, int32_t> met; // by kind of mode 0, and by -mode
  for (uint32_t seed = 1; seed <= 60; ++seed) {
    rand_seed(seed);
    const int32_t mode = seed % 10 == 1 ? 1 : seed % 10 == 2 ? 2 : 0;
    const int32_t kind = mode == 0 ? rand_int(12) : -mode;
    const bool nested = kind == 8 || kind == 9;
    if (nested && seed != 20 && seed != 26 && seed != 29 && seed != 41) continue;
    if (++met[kind] > (kind < 0 ? 2 : 3)) continue;
    rand_seed(seed);
    const OwnedMaze wanted(literal_choose(mode));
    const int32_t next_draw = rand15();
    rand_seed(seed);
    const OwnedMaze made(Maze_choose(mode));
    ASSERT_EQ(rand15(), next_draw) << "another number of draws, seed " << seed;
    ASSERT_STREQ(literal_difference(made.get(), wanted.get()), nullptr) << "seed " << seed;
    ASSERT_STREQ(scenario_fault(made.get()), nullptr) << "seed " << seed;
    // One tree through all its doors: as many ways as a tree of so many places has, and no place
    // out of reach.
    const int64_t places = plain_nodes(made.get());
    EXPECT_EQ(walk({innermost(made.get()), 0}), std::pair(places, 2 * (places - 1)))
        << "seed " << seed;
  }
  EXPECT_EQ(met.size(), 14u);
}

TEST(Choose, OtherModesAreModeZero) {
  for (const int32_t mode : {-1, 3, 1000}) {
    rand_seed(13); // a small grid
    const OwnedMaze plain(Maze_choose(0));
    rand_seed(13);
    const OwnedMaze other(Maze_choose(mode));
    EXPECT_STREQ(literal_difference(other.get(), plain.get()), nullptr) << mode;
  }
}

TEST(Choose, LabelsCountTheHoldersOfEachMaze) {
  const ThreeLevels t = scenario_three_levels();
  const OwnedMaze tree(t.root);
  for (const bool named : {false, true}) {
    if (named) string_assign(&t.root->name, "A");
    Maze_label_tree(t.root);
    EXPECT_EQ(std::string(t.m1->name), named ? "A.01" : "1");
    EXPECT_EQ(std::string(t.m2->name), named ? "A.02" : "2");
    EXPECT_EQ(std::string(t.n2->name), named ? "A.01.01" : "1.01");
    EXPECT_EQ(std::string(t.n3->name), named ? "A.01.02" : "1.02");
  }
}

} // namespace
