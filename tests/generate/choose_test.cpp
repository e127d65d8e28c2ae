#include "generate/choose.h"

#include <gtest/gtest.h>

#include <cmath>

#include "generate/carve.h"
#include "generate/flat.h"
#include "generate/owned_maze.h"
#include "generate/paint.h"
#include "support/random.h"

namespace {

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
    uint32_t colour = 0;
    for (int32_t shift = 0; flat && shift < 24; shift += 8)
      colour |= static_cast<uint32_t>(255.0 * (rand_real(0.5) + 0.25) + 0.5) << shift;
    const bool wave = rand_int(6) == 0, warp = rand_int(3) == 0;
    EXPECT_EQ(rand15(), next_draw) << "another number of draws";
    const auto bent = [warp](double c) { return 2.5 * (warp ? 2 * c + 1.5 * std::sin(c) : c); };
    ASSERT_EQ(maze_count(made.get()), w * h);
    for (int32_t i = 0; i < w * h; ++i) {
      const MazeNode &node = maze_nodes(made.get())[i], &lattice = maze_nodes(plain.get())[i];
      const auto [x, y, flat_z] = node_position(lattice);
      const double z = wave ? 4.0 * (std::sin(x / 4) + std::sin(y / 4)) : flat_z;
      ASSERT_LT(length(node_position(node) - Vec3{bent(x), bent(y), bent(z)}), 1e-9);
      ASSERT_EQ(node.self.colour, flat ? colour : colour_field_sine({x, y, 0}));
      ASSERT_EQ(node.degree, lattice.degree); // carved with the same draws
    }
  }
}

} // namespace
