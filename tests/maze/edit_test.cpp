#include "maze/edit.h"

#include <algorithm>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "scenarios.h"
#include "support/random.h"

// The rows of all nodes, such as "a:b1,c2 b:a1 c:a2", with a dot for the default record.
static std::string rows_of(const Maze *maze) {
  std::string text;
  for (int32_t i = 0; i < maze_count(maze); i++) {
    const MazeNode *nodes = maze_nodes(maze);
    text += static_cast<char>('a' + nodes[i].self.colour);
    for (uint32_t r = 0; r < nodes[i].degree; r++) {
      const MazeEdge &edge = nodes[i].edge[r];
      const bool fresh = edge.usertime == never && edge.roamertime == never;
      text += r == 0 ? ":" : ",";
      text += static_cast<char>('a' + nodes[nodes[i].nbr[r]].self.colour);
      text += edge.colour == maze_default_colour && fresh ? '.' : static_cast<char>(edge.colour);
    }
    text += " ";
  }
  return text;
}

struct Edit {
  const char *what, *before;
  void (*edit)(Maze *);
  const char *after;
};

static const Edit edits[] = {
    {"a new edge", "ab1 bc2", [](Maze *m) { Maze_join(m, 0, 2); }, "a:b1,c. b:a1,c2 c:b2,a. "},
    {"an edge from a full node", "ab1 ac1 ad1 ae1 af1 ag1 ah1 ai1 j",
     [](Maze *m) { Maze_join(m, 0, 9); },
     "a:b1,c1,d1,e1,f1,g1,h1,i1 b:a1 c:a1 d:a1 e:a1 f:a1 g:a1 h:a1 i:a1 j "},
    {"an edge to a full node", "ab1 ac1 ad1 ae1 af1 ag1 ah1 ai1 j",
     [](Maze *m) { Maze_join(m, 9, 0); },
     "a:b1,c1,d1,e1,f1,g1,h1,i1 b:a1 c:a1 d:a1 e:a1 f:a1 g:a1 h:a1 i:a1 j "},
    {"no edge to cut", "ab1 bc2", [](Maze *m) { Maze_cut(m, 0, 2); }, "a:b1 b:a1,c2 c:b2 "},
    {"the first of three cut", "ab1 ac2 ad3", [](Maze *m) { Maze_cut(m, 0, 1); },
     "a:d3,c2 b c:a2 d:a3 "},
    {"a doubled edge cut", "ab1 ac2 ab3", [](Maze *m) { Maze_cut(m, 0, 1); }, "a:c2 b c:a2 "},
    {"the last node deleted", "ab1 ac2 bc3", [](Maze *m) { Maze_delete_node(m, 2); }, "a:b1 b:a1 "},
    {"a neighbour of the last deleted", "ab1 bc2 cd3 bd4 ad5",
     [](Maze *m) { Maze_delete_node(m, 1); }, "a:d5 d:c3,a5 c:d3 "},
    {"a node with doubled edges deleted", "ab1 bc2 ba3 bd4 cd5",
     [](Maze *m) { Maze_delete_node(m, 1); }, "a d:c5 c:d5 "},
    {"neighbours with a common one swapped", "ab1 ac2 bc3 ad4",
     [](Maze *m) { Maze_swap_nodes(m, 0, 1); }, "b:a1,c3 a:b1,c2,d4 c:a2,b3 d:a4 "},
    {"a node swapped with itself", "ab1 ac2", [](Maze *m) { Maze_swap_nodes(m, 1, 1); },
     "a:b1,c2 b:a1 c:a2 "},
};

TEST(Edit, RowsFollowTheChange) {
  for (const Edit &edit : edits) {
    Maze *maze = scenario_graph(edit.before);
    edit.edit(maze);
    EXPECT_EQ(rows_of(maze), edit.after) << edit.what;
    Maze_destroy(maze, 1);
  }
}

// Positions on a small lattice, so that many nodes are equally near a door's neighbour.
TEST(Edit, DoorsAreTheNearestNodesWithTheHighestIndexAmongEquals) {
  for (uint32_t seed = 0; seed < 50; seed++) {
    rand_seed(seed);
    Maze *around = scenario_random(20, 60), *below = scenario_random(12, 20);
    std::vector<std::pair<Vec3, uint32_t>> nodes; // with self.colour
    for (MazeNode *n = maze_nodes(below), *end = n + 12; n < end; n++) {
      n->x = rand_int(3), n->y = rand_int(3), n->z = rand_int(2);
      nodes.emplace_back(node_position(*n), n->self.colour);
    }
    Maze_align_doors(below); // changes nothing without a holder
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
    Maze_destroy(around, 1);
  }
}
