// Compares the trees of all builders, topologies and modes with digests in trees.txt. They were
// recorded when the reference implementation made the same trees.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>

#include "generate/carve.h"
#include "generate/new_tree.h"
#include "generate/topologies.h"
#include "generate/nest.h"
#include "generate/relax.h"
#include "generate/transform.h"
#include "maze/lifetime.h"
#include "maze/traversal.h"
#include "scenarios.h"
#include "support/random.h"

namespace {

// The random topologies of a size for many seeds, as one maze that is not connected.
Maze *random_topologies(double size, int32_t seeds) {
  Maze *all = Maze_new();
  for (int32_t seed = 1; seed <= seeds; seed++) {
    rand_seed(static_cast<uint32_t>(seed));
    Maze *one = Maze_random_topology(size);
    Maze_append(all, one);
    Maze_destroy(one, 1);
  }
  return all;
}

// A tree nested twice, smoothed and repelled by the given fractions.
Maze *relaxed(double size, double smoothing, double repulsion) {
  Maze *root = Maze_random_topology(size);
  Maze_carve(root);
  for (int pass = 0; pass < 2; pass++)
    Maze_nest(root, 0.3, size, Maze_random_topology);
  Maze_map_positions(root, warp_position, 1); // breaks symmetries
  Maze_smooth(root, smoothing);
  Maze_repel(root, repulsion);
  return root;
}

Maze *build(const std::string &name, double a, double b, double c) {
  const auto i = static_cast<int32_t>(a), j = static_cast<int32_t>(b), k = static_cast<int32_t>(c);
  rand_seed(name == "choose" || name == "nested-twice" ? static_cast<uint32_t>(j) : 1);
  if (name == "plane_xy") return Maze_plane_xy(i, j);
  if (name == "plane_xz") return Maze_plane_xz(i, j);
  if (name == "plane_yz") return Maze_plane_yz(i, j);
  if (name == "grid3d") return Maze_grid3d(i, j, k);
  if (name == "hexagon") return Maze_hexagon(i);
  if (name == "honeycomb") return Maze_honeycomb(i, j);
  if (name == "polar") return Maze_polar(i, j);
  if (name == "sphere") return Maze_sphere(a);
  if (name == "torus") return Maze_torus(a, b);
  if (name == "mobius") return Maze_mobius(a, b);
  if (name == "box") return Maze_box(i, j, k);
  if (name == "topologies") return random_topologies(a, j);
  if (name == "relaxed") return relaxed(a, b, c);
  if (name == "choose") return Maze_new_tree(i);
  return Maze_new_of_kind(*MazeKind_find(name.c_str()), a);
}

struct Digest {
  uint32_t value = 2166136261;

  void add(int64_t number) {
    for (int shift = 0; shift < 64; shift += 8)
      value = (value ^ static_cast<uint8_t>(number >> shift)) * 16777619;
  }
  // Independent of the rounding of the mathematical library.
  void add_rounded(double number) { add(std::llround(number * 1e4)); }
  void add_place(Vec3 place) { add_rounded(place.x), add_rounded(place.y), add_rounded(place.z); }
  uint32_t folded() const { return (value ^ value >> 16) & 0xFFFF; }
};

struct TreeDigest {
  uint32_t nodes = 0;
  Digest rows, places, marks, mazes;

  void add_edge(const MazeEdge &edge) {
    marks.add(edge.colour);
    marks.add_rounded(edge.usertime);
    marks.add_rounded(edge.roamertime);
  }
  void add_node(const MazeNode &node) {
    rows.add(node.submaze ? node.submaze->parentnode : -1);
    rows.add(node.degree);
    for (uint32_t r = 0; r < node.degree; r++) {
      rows.add(node.nbr[r]);
      add_edge(node.edge[r]);
    }
    add_edge(node.self);
    places.add_place(node_position(node));
  }
  void add_maze(Maze *maze) {
    mazes.add(maze->visited);
    mazes.add(maze->bordermask);
    mazes.add_rounded(maze->halfwidth);
    for (const char *letter = maze->name; letter && *letter; letter++)
      mazes.add(*letter);
    Vec3 low, high;
    Maze_bounds(maze, &low, &high);
    mazes.add_place(low);
    mazes.add_place(high);
    nodes += maze->nodes.count;
    for (int32_t i = 0; i < maze_count(maze); i++)
      add_node(maze_nodes(maze)[i]);
  }
};

std::string digest_of(const std::string &entry) {
  std::istringstream words(entry);
  std::string name;
  double a = 0.0, b = 0.0, c = 0.0;
  words >> name >> a >> b >> c;
  Maze *tree = build(name, a, b, c);
  const int32_t next_draw = rand15();
  TreeDigest digest;
  for (Maze *maze = tree; maze; maze = Maze_next(tree, maze))
    digest.add_maze(maze);
  Maze_destroy(tree, 1);
  char text[80];
  std::snprintf(text, sizeof text,
                "%u nodes, draw %d, rows %04x, places %04x, marks %04x, mazes %04x", digest.nodes,
                next_draw, digest.rows.folded(), digest.places.folded(), digest.marks.folded(),
                digest.mazes.folded());
  return text;
}

TEST(Generate, TreesMatchTheirDigests) {
  std::ifstream file(VOREL_TREES);
  ASSERT_TRUE(file);
  std::string now;
  for (std::string line; std::getline(file, line);) {
    const size_t end = line.find(" | ");
    if (end != std::string::npos) {
      const std::string digests = line.substr(0, end + 3) + digest_of(line.substr(0, end));
      EXPECT_EQ(digests, line);
      line = digests;
    }
    now += line + '\n';
  }
  if (!HasFailure()) return;
  const std::string path = testing::TempDir() + "trees.txt";
  std::ofstream(path, std::ios::binary) << now;
  std::printf("if the change is intended: cp %s tests/generate/trees.txt\n", path.c_str());
}

TEST(Generate, BoundsCoverTheFirstNodeThoughItHoldsAMaze) {
  Maze *root = scenario_path(3);
  scenario_hold(root, 0, scenario_grid(1, 1, 1, {1.5, 0, 0}));
  EXPECT_EQ(Maze_tree_bounds(root)[0].low.x, 0);
  Maze_destroy(root, 1);
}

} // namespace
