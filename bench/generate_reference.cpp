#include "generate_reference.h"

#include <cmath>
#include <utility>

#include "generate/topologies.h"
#include "generate/paint.h"
#include "generate/transform.h"
#include "maze/edit.h"
#include "maze/lifetime.h"
#include "maze/pos.h"
#include "maze/reach.h"
#include "support/colour.h"
#include "support/random.h"
#include "support/trigonometry.h"
#include "support/strings.h"

namespace {

Maze *and_destroy(Maze *made, Maze *used, Maze *also = nullptr) {
  Maze_destroy(used, 1);
  if (also) Maze_destroy(also, 1);
  return made;
}

std::vector<int32_t> reference_weld_map(const Maze *a, const Maze *b) {
  std::vector<int32_t> map;
  for (int32_t i = 0; i < maze_count(a); i++) {
    double best = 9e99;
    int32_t found = -1;
    for (int32_t j = maze_count(b); j-- > 0;) {
      const Vec3 d = node_position(maze_nodes(b)[j]) - node_position(maze_nodes(a)[i]);
      if (!(length_squared(d) < best)) continue;
      best = length_squared(d);
      found = j;
    }
    map.push_back(best <= 0.5625 ? maze_count(a) + found : -1);
  }
  return map;
}

Maze *reference_topology(double s) {
  const int32_t a = static_cast<int32_t>(s - 1), b = static_cast<int32_t>((s - 1) * 0.5);
  const int32_t t = rand_int(11);
  if (t == 3) return Maze_polar(b, 1);
  if (t == 4) return Maze_hexagon(b);
  if (t == 5) return Maze_honeycomb(b, 1);
  if (t == 6) return Maze_sphere(b);
  if (t == 7) return Maze_torus(2 * b / 3, b / 3);
  if (t == 8) return Maze_mobius(2 * b / 3, b / 3);
  if (t >= 9) {
    const int32_t p = 1 + rand_int(a);
    const int32_t q = t == 9 ? p : 1 + rand_int(a);
    const int32_t r = t == 9 ? p : 1 + rand_int(a);
    return reference_box(p, q, r);
  }
  const double u = rand_real(1.0 / 3);
  const int32_t w = static_cast<int32_t>(std::pow(s, 1 - u));
  return Maze_grid3d(w, w, static_cast<int32_t>(std::pow(s, 2 * u)));
}

void reference_centre(Maze *maze) {
  Vec3 sum = {};
  for (int32_t i = 0; i < maze_count(maze); i++)
    sum = sum + node_position(maze_nodes(maze)[i]);
  Maze_translate(maze, -1.0 * (sum / maze_count(maze)), 0);
}

void reference_nest(Maze *maze, double size) {
  Maze_scale(maze, size, 0);
  bool leaf = true;
  for (int32_t i = maze_count(maze); i-- > 0;) {
    if (!maze_nodes(maze)[i].submaze) continue;
    reference_nest(maze_nodes(maze)[i].submaze, size);
    leaf = false;
  }
  for (int32_t i = leaf ? maze_count(maze) : 0; i-- > 0;) {
    if (rand_real(1.0) >= 0.5 || Pos_submaze_exit(maze, i).maze) continue;
    Maze *sub = reference_topology(size);
    reference_centre(sub);
    Maze_rotate(sub, {0, 0, Maze_quad_angle(maze, i)}, 0);
    sub->parent = maze;
    sub->parentnode = i;
    Maze_translate(sub, node_position(maze_nodes(maze)[i]), 0);
    Maze_align_doors(sub);
    maze_nodes(maze)[i].submaze = and_destroy(reference_carved(sub), sub);
  }
}

Maze *reference_carved_patchwork() {
  Maze *uncarved = reference_patchwork();
  return and_destroy(reference_carved(uncarved), uncarved);
}

Maze *reference_single() {
  const int32_t t = rand_int(12);
  Maze *uncarved = nullptr;
  if (t < 3) {
    const double f = std::exp(rand_real(2.0) - 1);
    uncarved = Maze_plane_xy(static_cast<int32_t>(static_cast<float>(50 * f)),
                             static_cast<int32_t>(static_cast<float>(50 / f)));
  } else if (t == 5) {
    const int32_t a = 2 + rand_int(9), b = 2 + rand_int(9), c = 2 + rand_int(9);
    uncarved = Maze_grid3d(a, b, c);
  } else {
    uncarved = t == 3    ? Maze_hexagon(25)
               : t == 4  ? Maze_honeycomb(50, 1)
               : t == 6  ? Maze_polar(50, 1)
               : t == 7  ? Maze_sphere(20)
               : t == 8  ? reference_topology(20)
               : t == 9  ? reference_topology(10)
               : t == 10 ? Maze_torus(20, 10)
                         : Maze_mobius(20, 10);
  }
  Maze *root = and_destroy(reference_carved(uncarved), uncarved);
  if (t == 8) reference_nest(root, 20);
  for (int32_t pass = 0; t == 9 && pass < 2; pass++)
    reference_nest(root, 10);
  if (rand_int(2) != 0) {
    Maze_colour_field(root, reference_sine, 1);
  } else {
    const double d1 = rand_real(0.5), d2 = rand_real(0.5), d3 = rand_real(0.5);
    Maze_paint(root, rgb_colour(d3 + 0.25, d2 + 0.25, d1 + 0.25), 1);
  }
  if (rand_int(6) == 0) Maze_height_wave(root, 1);
  if (rand_int(3) == 0) Maze_map_positions(root, warp_position, 1);
  return root;
}

} // namespace

Maze *reference_carved(const Maze *maze) {
  Maze *c = Maze_copy(maze, 1);
  std::vector<std::pair<int32_t, int32_t>> pairs;
  for (int32_t a = 0; a < maze_count(maze); a++) {
    const MazeNode &node = maze_nodes(maze)[a];
    for (uint32_t r = node.degree; r-- > 0;)
      if (a < node.nbr[r]) pairs.emplace_back(a, node.nbr[r]);
  }
  for (size_t k = pairs.size(); k-- > 0;)
    std::swap(pairs[k], pairs[static_cast<size_t>(rand_int(static_cast<int32_t>(k + 1)))]);
  for (size_t k = pairs.size(); k-- > 0;) {
    const auto [a, b] = pairs[k];
    const int32_t row = MazeNode_find_slot(maze_nodes(c)[a], b);
    const uint32_t colour = row < 0 ? 0 : maze_nodes(c)[a].edge[row].colour;
    Maze_cut(c, a, b);
    if (Maze_connected(c, a, b, nullptr) != 0) continue;
    Maze_join(c, a, b);
    for (const int32_t end : {a, b})
      maze_nodes(c)[end].edge[maze_nodes(c)[end].degree - 1].colour = colour;
  }
  return c;
}

Maze *reference_weld(const Maze *a, const Maze *b) {
  const int32_t n = maze_count(a);
  const std::vector<int32_t> map = reference_weld_map(a, b);
  const auto partner = [&map](int32_t i) { return map[static_cast<size_t>(i)]; };
  Maze *c = Maze_merged(a, b);
  MazeNode *nodes = maze_nodes(c);
  for (int32_t i = 0; i < n; i++)
    for (uint32_t r = partner(i) < 0 ? nodes[i].degree : 0; r-- > 0;) {
      if (r >= nodes[i].degree) continue;
      const int32_t x = nodes[i].nbr[r];
      if (x >= n || partner(x) < 0) continue;
      MazeNode &y = nodes[partner(x)];
      if (y.degree == MAZE_MAX_DEGREE) {
        Maze_cut(c, i, x);
        continue;
      }
      MazeNode_remove_slot(&nodes[x], static_cast<uint32_t>(MazeNode_find_slot(nodes[x], i)));
      nodes[i].nbr[r] = partner(x);
      MazeNode_append_slot(&y, i);
      const uint32_t colour = nodes[i].edge[r].colour;
      for (uint32_t q = 0; q < MAZE_MAX_DEGREE; q++) {
        if (q < nodes[i].degree && nodes[i].nbr[q] == partner(x)) nodes[i].edge[q].colour = colour;
        if (q < y.degree && y.nbr[q] == i) y.edge[q].colour = colour;
      }
    }
  for (int32_t v = n; v-- > 0;)
    if (partner(v) >= 0) Maze_delete_node(c, v);
  return c;
}

Maze *reference_box(int32_t a, int32_t b, int32_t c) {
  Maze *box = Maze_new();
  for (int32_t face = 0; face < 6; face++) {
    Maze *plane = face < 2   ? Maze_plane_xy(a + 1, b + 1)
                  : face < 4 ? Maze_plane_xz(a + 1, c + 1)
                             : Maze_plane_yz(b + 1, c + 1);
    for (int32_t i = 0; face % 2 == 1 && i < maze_count(plane); i++) {
      MazeNode &node = maze_nodes(plane)[i];
      (face == 1 ? node.z : face == 3 ? node.y : node.x) += face == 1 ? c : face == 3 ? b : a;
    }
    box = and_destroy(reference_weld(box, plane), box, plane);
  }
  return box;
}

Maze *reference_patchwork() {
  Maze *acc = Maze_new();
  for (int32_t k = 0; k < 25; k++) {
    Maze *tile = reference_topology(22.5);
    const int32_t r1 = rand15(), r2 = rand15();
    Maze_paint(tile, static_cast<uint32_t>((r1 / 32768.0 + r2) * 512), 0);
    reference_centre(tile);
    if (rand_int(5) == 0) {
      const double z = rand_real(100), y = rand_real(100), x = rand_real(100);
      Maze_rotate(tile, {x, y, z}, 0);
    }
    Maze_translate(tile, {k / 5 * 15.0, k % 5 * 15.0, 0}, 0);
    acc = and_destroy(reference_weld(acc, tile), acc, tile);
  }
  return and_destroy(Maze_reachable_copy(acc, 0), acc);
}

Maze *reference_choose(int32_t mode) {
  Maze *root = mode == 0 ? reference_single() : reference_carved_patchwork();
  if (mode != 0) str_dup_into(&root->name, "1.01");
  Maze_scale(root, 2.5, 1);
  return root;
}

uint32_t reference_sine(Vec3 p) {
  const auto wave = [](double c) { return 0.25 * (portable_sin(0.1 * c) + 1.0); };
  return rgb_colour(wave(p.x), wave(p.y), wave(p.z));
}

std::vector<Vec3> reference_repulsion(const Maze *maze) {
  std::vector<Vec3> forces(maze->nodes.count, Vec3{});
  for (uint32_t a = 0; a < maze->nodes.count; a++)
    for (uint32_t b = 0; b < a; b++) {
      const Vec3 d = node_position(maze_nodes(maze)[b]) - node_position(maze_nodes(maze)[a]);
      const double r2 = dot(d, d), w = 1 / (r2 * r2);
      forces[b] = forces[b] + d * w;
      forces[a] = forces[a] - d * w;
    }
  return forces;
}
