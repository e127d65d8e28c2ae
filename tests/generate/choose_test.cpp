#include "generate/choose.h"

#include <gtest/gtest.h>

#include <cmath>

#include "generate/carve.h"
#include "generate/flat.h"
#include "generate/owned_maze.h"
#include "support/random.h"

namespace {

uint32_t channel(double c) {
  return static_cast<uint32_t>(255.0 * c + 0.5);
}

// The colour at (x, y, 0) of the plane before it is bent.
uint32_t sine_colour(double x, double y) {
  const auto wave = [](double c) { return channel(0.25 * std::sin(0.1 * c) + 0.25); };
  return wave(x) << 16 | wave(y) << 8 | 0x40;
}

TEST(Choose, MakesExactlyWhatItsDrawsSay) {
  // Between them these seeds draw every kind, numbers close to either side of both odds, and long
  // planes as well as high ones.
  for (const uint32_t seed : {2, 12, 24, 59, 72, 109, 201, 212}) {
    rand_seed(seed);
    const OwnedMaze made(Maze_choose());
    const int32_t next_draw = rand15();
    rand_seed(seed);
    const double f = std::exp(rand_real(2.0) - 1.0);
    const auto w = static_cast<int32_t>(static_cast<float>(50.0 * f));
    const auto h = static_cast<int32_t>(static_cast<float>(50.0 / f));
    const OwnedMaze plane(Maze_plane_xy(w, h)), plain(Maze_carved(plane.get()));
    const bool flat = rand_int(2) == 0;
    uint32_t flat_colour = 0;
    for (int32_t shift = 0; flat && shift < 24; shift += 8)
      flat_colour |= channel(rand_real(0.5) + 0.25) << shift;
    const bool wave = rand_int(6) == 0;
    const bool warp = rand_int(3) == 0;
    EXPECT_EQ(rand15(), next_draw) << "another number of draws";
    const auto bent = [warp](double c) { return 2.5 * (warp ? 2 * c + 1.5 * std::sin(c) : c); };
    ASSERT_EQ(maze_count(made.get()), w * h);
    EXPECT_EQ(made->name, nullptr);
    for (int32_t i = 0; i < w * h; ++i) {
      const MazeNode &node = maze_nodes(made.get())[i], &lattice = maze_nodes(plain.get())[i];
      const double x = i % w, y = i / w;
      const double z = wave ? 4.0 * (std::sin(x / 4) + std::sin(y / 4)) : 0.0;
      ASSERT_LT(length(node_position(node) - Vec3{bent(x), bent(y), bent(z)}), 1e-9);
      ASSERT_EQ(node.self.colour, flat ? flat_colour : sine_colour(x, y));
      ASSERT_EQ(node.degree, lattice.degree); // carved with the same draws
      for (uint32_t r = 0; r < node.degree; ++r) {
        const int32_t to = lattice.nbr[r];
        ASSERT_EQ(node.nbr[r], to);
        const uint32_t middle = sine_colour((x + to % w) / 2, (y + to / w) / 2);
        ASSERT_EQ(node.edge[r].colour, flat ? flat_colour : middle);
      }
    }
  }
}

} // namespace
