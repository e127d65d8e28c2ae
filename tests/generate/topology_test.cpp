#include "generate/topology.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <map>
#include <numbers>
#include <utility>
#include <vector>

#include "generate/closed.h"
#include "generate/curved.h"
#include "generate/flat.h"
#include "generate/owned_maze.h"
#include "generate/transform.h"
#include "maze/pos.h"
#include "maze/reach.h"
#include "scenarios.h"
#include "support/random.h"

namespace {

using std::numbers::pi;

using Normal = std::function<Vec3(Vec3)>;

// The rows of a node in counter-clockwise order as seen from where the normal points.
std::vector<int32_t> turn_order(const Maze *maze, int32_t i, Vec3 normal) {
  const MazeNode *nodes = maze_nodes(maze);
  const Vec3 right =
      cross(normal, std::abs(normal.x) < 0.9 * length(normal) ? Vec3{1, 0, 0} : Vec3{0, 1, 0});
  const Vec3 up = cross(normal, right) * (1.0 / length(normal));
  const auto angle = [&](int32_t to) {
    const Vec3 d = node_position(nodes[to]) - node_position(nodes[i]);
    return std::atan2(dot(d, up), dot(d, right));
  };
  std::vector<int32_t> order(nodes[i].nbr, nodes[i].nbr + nodes[i].degree);
  std::sort(order.begin(), order.end(), [&](int32_t a, int32_t b) { return angle(a) < angle(b); });
  return order;
}

// Nodes less edges and more faces, where a face is what a walk that always takes the next edge in
// turn order goes around.
int32_t euler_characteristic(const Maze *maze, const Normal &normal) {
  std::vector<std::vector<int32_t>> order;
  for (int32_t i = 0; i < maze_count(maze); ++i)
    order.push_back(turn_order(maze, i, normal(node_position(maze_nodes(maze)[i]))));
  std::map<std::pair<int32_t, int32_t>, bool> walked; // half edges
  int32_t faces = 0;
  for (int32_t i = 0; i < maze_count(maze); ++i)
    for (const int32_t first : order[static_cast<size_t>(i)]) {
      faces += walked[{i, first}] ? 0 : 1;
      for (int32_t from = i, to = first; !walked[{from, to}];) {
        walked[{from, to}] = true;
        const std::vector<int32_t> &around = order[static_cast<size_t>(to)];
        const auto back = std::find(around.begin(), around.end(), from);
        from = to;
        to = back + 1 == around.end() ? around.front() : back[1];
      }
    }
  return maze_count(maze) - static_cast<int32_t>(walked.size() / 2) + faces;
}

bool connected(const Maze *maze) {
  uint8_t *reached = Maze_reach(maze, 0);
  const bool all = std::count(reached, reached + maze_count(maze), 0) == 0;
  std::free(reached);
  return all;
}

// What holds for every surface: its nodes, what it is, and how far each place is from it.
void expect_surface(Maze *made, int32_t count, uint32_t degree, int32_t euler, const Normal &normal,
                    const std::function<double(Vec3)> &off) {
  const OwnedMaze maze(made);
  ASSERT_EQ(maze_count(made), count);
  EXPECT_STREQ(scenario_fault(made), nullptr);
  EXPECT_TRUE(connected(made));
  EXPECT_EQ(euler_characteristic(made, normal), euler);
  uint32_t highest = 0;
  for (int32_t i = 0; i < count; ++i) {
    const Vec3 here = node_position(maze_nodes(made)[i]);
    highest = std::max(highest, maze_nodes(made)[i].degree);
    ASSERT_NEAR(off(here), 0.0, 1e-9) << "node " << i;
    for (uint32_t r = 0; r < maze_nodes(made)[i].degree; ++r) {
      const double step =
          length(node_position(maze_nodes(made)[maze_nodes(made)[i].nbr[r]]) - here);
      ASSERT_TRUE(step > 0.3 && step < 2.2) << "an edge of length " << step;
    }
  }
  EXPECT_EQ(highest, degree);
}

Vec3 upwards(Vec3) {
  return {0, 0, 1};
}

double height(Vec3 p) {
  return p.z;
}

// A node as it should be, and the whole of a small maze.
struct Node {
  Vec3 place;
  std::vector<int32_t> rows;
};

void expect_nodes(Maze *made, const std::vector<Node> &wanted) {
  const OwnedMaze maze(made);
  ASSERT_EQ(maze_count(made), static_cast<int32_t>(wanted.size()));
  for (int32_t i = 0; i < maze_count(made); ++i) {
    const MazeNode &node = maze_nodes(made)[i];
    const Node &want = wanted[static_cast<size_t>(i)];
    EXPECT_LT(length(node_position(node) - want.place), 1e-12) << "node " << i;
    EXPECT_EQ(std::vector<int32_t>(node.nbr, node.nbr + node.degree), want.rows) << "node " << i;
  }
}

// Rings of so many nodes, each at its distance from the axis and its height.
std::vector<Node> rings_of(const std::vector<int32_t> &counts, const std::vector<double> &radius,
                           const std::vector<double> &z) {
  std::vector<Node> nodes;
  for (size_t r = 0; r < counts.size(); ++r) {
    const int32_t base = static_cast<int32_t>(nodes.size()), n = counts[r];
    for (int32_t k = 0; k < n; ++k) {
      const double a = 2 * pi * k / n;
      Node node = {{radius[r] * std::cos(a), radius[r] * std::sin(a), z[r]},
                   {base + (k + n - 1) % n, base + (k + 1) % n}};
      if (r > 0 && k * counts[r - 1] % n == 0)
        node.rows.push_back(base - counts[r - 1] + k * counts[r - 1] / n);
      if (r + 1 < counts.size() && k * counts[r + 1] % n == 0)
        node.rows.push_back(base + n + k * counts[r + 1] / n);
      nodes.push_back(node);
    }
  }
  return nodes;
}

// So many around and across; a twisted band's last column leads to the first one's other end.
std::vector<Node> strip_of(int32_t around, int32_t across,
                           const std::function<Vec3(int32_t, int32_t)> &place, bool band) {
  const int32_t last = around * across - 1, far = (around / 2) * across + across / 2;
  std::vector<Node> nodes(static_cast<size_t>(last + 1));
  const auto join = [&nodes](int32_t a, int32_t b) {
    nodes[static_cast<size_t>(a)].rows.push_back(b);
    nodes[static_cast<size_t>(b)].rows.push_back(a);
  };
  for (int32_t i = 0; i <= last; ++i) {
    const int32_t u = i / across, v = i % across;
    nodes[static_cast<size_t>(i)].place = place(u, v);
    join(i, u < around - 1 ? i + across : band ? across - 1 - v : v);
    if (!band || v < across - 1) join(i, u * across + (v + 1) % across);
  }
  for (Node &node : nodes) // the far node gets the last index
    for (int32_t &row : node.rows)
      row = row == last ? far : row == far ? last : row;
  std::swap(nodes[static_cast<size_t>(last)], nodes[static_cast<size_t>(far)]);
  return nodes;
}

TEST(Topology, NumberingRowsAndPlacesAreFixed) {
  expect_nodes(Maze_polar(4, 2), rings_of({8, 16, 16}, {2, 3, 4}, {0, 0, 0}));
  std::vector<double> radius, z; // of eight rings between the poles
  for (int32_t i = 1; i < 9; ++i) {
    radius.push_back(3 * std::sin(i * pi / 9));
    z.push_back(3 * std::cos(i * pi / 9));
  }
  expect_nodes(Maze_sphere(3), rings_of({4, 8, 16, 16, 16, 16, 8, 4}, radius, z));
  const double sizes[][2] = {{1, 0.5}, {2, 1}, {6, 3}, {20, 10}};
  for (const auto &[major, minor] : sizes) {
    const int32_t around = static_cast<int32_t>(2 * pi * major);
    const int32_t ring = static_cast<int32_t>(2 * pi * minor);
    const int32_t across = static_cast<int32_t>(2 * major + 1);
    const auto torus = [&, major = major, minor = minor](int32_t u, int32_t v) {
      const double a = 2 * pi * u / around, b = 2 * pi * v / ring, q = major + minor * std::cos(b);
      return Vec3{q * std::cos(a), q * std::sin(a), minor * std::sin(b)};
    };
    expect_nodes(Maze_torus(major, minor), strip_of(around, ring, torus, false));
    const auto band = [&, major = major](int32_t u, int32_t v) {
      const double a = 2 * pi * u / around, t = v - major, q = major + t * std::cos(a / 2);
      return Vec3{q * std::cos(a), q * std::sin(a), t * std::sin(a / 2)};
    };
    expect_nodes(Maze_mobius(major, major), strip_of(around, across, band, true));
  }
  // The corners (0, 2) and (2, 0) of a lattice of 3 by 3 go, the last index first; in the rows of
  // their neighbours, the last row takes their place.
  const double h = 0.8660253882408142;
  expect_nodes(Maze_hexagon(1), {{{0, 0, 0}, {1, 3, 4}},
                                 {{1, 0, 0}, {0, 5, 4}},
                                 {{0, 2 * h, 0}, {3, 6, 4}},
                                 {{-0.5, h, 0}, {4, 0, 2}},
                                 {{0.5, h, 0}, {3, 5, 1, 2, 0, 6}},
                                 {{1.5, h, 0}, {4, 1, 6}},
                                 {{1, 2 * h, 0}, {2, 5, 4}}});
}

TEST(Topology, DiscsArePlanar) {
  for (const int32_t n : {4, 9, 10, 25})
    expect_surface(Maze_hexagon(n), 3 * n * n + 3 * n + 1, 6, 2, upwards, height);
  const std::map<int32_t, int32_t> combs = {{4, 42}, {9, 180}, {10, 222}, {50, 5100}};
  for (const auto &[n, count] : combs)
    expect_surface(Maze_honeycomb(n, 1), count, 3, 2, upwards, height);
  const std::map<int32_t, int32_t> discs = {{4, 44}, {9, 268}, {10, 332}, {50, 7692}};
  for (const auto &[outer, count] : discs)
    expect_surface(Maze_polar(outer, 1), count, 4, 2, upwards,
                   [](Vec3 p) { return p.z + length(p) - std::round(length(p)); });
  const OwnedMaze dot(Maze_hexagon(0)), none(Maze_polar(0, 1)), below(Maze_hexagon(-1));
  const OwnedMaze small(Maze_sphere(0.5));
  EXPECT_EQ(maze_count(dot.get()), 1);
  EXPECT_EQ(maze_count(none.get()) + maze_count(below.get()) + maze_count(small.get()), 0);
}

TEST(Topology, SpheresAreClosed) {
  const std::map<int32_t, int32_t> spheres = {{4, 136}, {9, 984}, {10, 1240}, {20, 5016}};
  for (const auto &[radius, count] : spheres)
    expect_surface(
        Maze_sphere(radius), count, 4, 2, [](Vec3 p) { return p; },
        [radius = radius](Vec3 p) { return length(p) - radius; });
}

TEST(Topology, RandomOnesKeepToTheirSize) {
  for (const double size : {2.0, 3.5, 5.0, 6.5, 10.0, 20.0, 22.5})
    for (uint32_t seed = 1; seed <= 60; ++seed) {
      rand_seed(seed);
      const OwnedMaze maze(Maze_random_topology(size));
      ASSERT_STREQ(scenario_fault(maze.get()), nullptr);
      ASSERT_TRUE(connected(maze.get()));
      // At least a door for each row of a holder; tiny ones only have to have nodes.
      ASSERT_GE(maze_count(maze.get()), size < 7 ? 1 : 8);
      Vec3 low, high;
      Maze_bounds(maze.get(), &low, &high);
      const Vec3 span = high - low;
      ASSERT_LE(std::max({span.x, span.y, span.z}), size - 1 + 1e-9) << "seed " << seed;
    }
}

} // namespace
