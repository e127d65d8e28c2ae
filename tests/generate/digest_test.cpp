// Compares the trees of all builders, topologies and modes with digests in trees.txt, which were
// pinned when a step by step implementation made the same trees.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "generate/carve.h"
#include "generate/choose.h"
#include "generate/closed.h"
#include "generate/curved.h"
#include "generate/flat.h"
#include "generate/nest.h"
#include "generate/owned_maze.h"
#include "generate/relax.h"
#include "generate/topology.h"
#include "generate/transform.h"
#include "maze/walk.h"
#include "support/random.h"

namespace {

// The topologies of that size by many seeds, as one maze that is not connected.
Maze *random_topologies(double size, int32_t seeds) {
  Maze *all = Maze_new();
  for (int32_t seed = 1; seed <= seeds; ++seed) {
    rand_seed(static_cast<uint32_t>(seed));
    const OwnedMaze one(Maze_random_topology(size));
    Maze_append(all, one.get());
  }
  return all;
}

// A tree nested twice in mazes of that size, smoothed and repelled by those steps.
Maze *relaxed(double size, double smoothing, double repulsion) {
  Maze *root = Maze_random_topology(size);
  Maze_carve(root);
  for (int pass = 0; pass < 2; ++pass)
    Maze_nest(root, 0.3, size, Maze_random_topology);
  Maze_map_positions(root, warp_position, 1); // away from all symmetry
  Maze_smooth(root, smoothing);
  Maze_repel(root, repulsion);
  return root;
}

Maze *build(const std::string &name, double a, double b, double c) {
  const int32_t i = static_cast<int32_t>(a);
  const int32_t j = static_cast<int32_t>(b);
  const int32_t k = static_cast<int32_t>(c);
  rand_seed(name == "choose" ? static_cast<uint32_t>(j) : 1);
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
  EXPECT_EQ(name, "choose");
  return Maze_choose(i);
}

struct Digest {
  uint32_t value = 2166136261;

  void add(int64_t number) {
    for (int shift = 0; shift < 64; shift += 8)
      value = (value ^ static_cast<uint8_t>(number >> shift)) * 16777619;
  }
  // Coarse enough for the rounding of any mathematical library.
  void add_rounded(double number) { add(std::llround(number * 1e4)); }
};

// What is digested of a node, by kind of field.
using Kind = void (*)(Digest *digest, Pos pos);

void add_rows(Digest *digest, Pos pos) {
  const MazeNode &node = maze_nodes(pos.maze)[pos.node];
  digest->add(node.submaze ? node.submaze->parentnode : -1);
  digest->add(node.degree);
  for (uint32_t r = 0; r < node.degree; ++r)
    digest->add(node.nbr[r]);
}

void add_places(Digest *digest, Pos pos) {
  const Vec3 place = node_position(maze_nodes(pos.maze)[pos.node]);
  for (const double coordinate : {place.x, place.y, place.z})
    digest->add_rounded(coordinate);
}

void add_marks(Digest *digest, Pos pos) {
  const MazeNode &node = maze_nodes(pos.maze)[pos.node];
  for (uint32_t r = 0; r <= node.degree; ++r) {
    const MazeEdge &edge = r < node.degree ? node.edge[r] : node.self;
    digest->add(edge.colour);
    digest->add_rounded(edge.usertime);
    digest->add_rounded(edge.roamertime);
  }
}

void add_maze(Digest *digest, Pos pos) {
  if (pos.node > 0) return;
  digest->add(pos.maze->visited);
  digest->add(pos.maze->bordermask);
  digest->add_rounded(pos.maze->halfwidth);
  for (const char *letter = pos.maze->name; letter && *letter; ++letter)
    digest->add(*letter);
}

const std::pair<const char *, Kind> kinds[] = {
    {"rows", add_rows}, {"places", add_places}, {"marks", add_marks}, {"mazes", add_maze}};

// The digests of a kind over the first eighth of the nodes, the first two, and so on to all.
std::string digest_line(const std::vector<Pos> &nodes, Kind kind) {
  std::string line;
  Digest digest;
  for (size_t i = 0, eighth = 1; eighth <= 8; ++eighth) {
    for (; i < nodes.size() * eighth / 8; ++i)
      kind(&digest, nodes[i]);
    char text[8];
    std::snprintf(text, sizeof text, " %04x", (digest.value ^ digest.value >> 16) & 0xFFFF);
    line += text;
  }
  return line;
}

std::string digest_text(Maze *root, int32_t next_draw) {
  std::vector<Pos> nodes;
  int32_t mazes = 0;
  for (Maze *maze = root; maze; maze = Maze_next(root, maze), ++mazes)
    for (int32_t i = 0; i < maze_count(maze); ++i)
      nodes.push_back({maze, i});
  std::ostringstream text;
  text << "  " << nodes.size() << " nodes in " << mazes << " mazes, next draw " << next_draw
       << '\n';
  for (const auto &[name, kind] : kinds)
    text << "  " << name << digest_line(nodes, kind) << '\n';
  return text.str();
}

// The text of the tree that the first line of an entry asks for.
std::string digest_of(const std::string &line) {
  std::istringstream words(line);
  std::string name;
  double a = 0.0;
  double b = 0.0;
  double c = 0.0;
  words >> name >> a >> b >> c;
  const OwnedMaze tree(build(name, a, b, c));
  const int32_t next_draw = rand15();
  return digest_text(tree.get(), next_draw);
}

// The order of nodes is that of Maze_next, so a failure shows in which eighth of them what differs.
TEST(Generate, TreesAreThePinnedOnes) {
  std::ifstream file(VOREL_TREES);
  ASSERT_TRUE(file);
  std::string now;
  std::string line;
  while (std::getline(file, line)) {
    now += line + '\n';
    if (line.empty() || line[0] == '#') continue;
    SCOPED_TRACE(line);
    const std::string digests = digest_of(line);
    std::string pinned;
    while (file.peek() == ' ' && std::getline(file, line))
      pinned += line + '\n';
    EXPECT_EQ(digests, pinned);
    now += digests;
  }
  if (!HasFailure()) return;
  const std::string path = testing::TempDir() + "trees.txt";
  std::ofstream(path, std::ios::binary) << now;
  std::printf("if the change is meant: cp %s tests/generate/trees.txt\n", path.c_str());
}

} // namespace
