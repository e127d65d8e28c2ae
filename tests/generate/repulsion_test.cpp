#include "generate/repulsion_kernel.h"

#include <gtest/gtest.h>

#include <cmath>
#include <span>

#include "support/random.h"

namespace {

constexpr int32_t places = 19;
using Coordinates = double[3][places]; // by axis

void add_force(const Coordinates &at, int32_t a, int32_t b, Coordinates *forces) {
  double r2 = 0.0;
  for (const auto &axis : at)
    r2 += (axis[a] - axis[b]) * (axis[a] - axis[b]);
  for (int32_t axis = 0; axis < 3; ++axis)
    (*forces)[axis][a] += (at[axis][a] - at[axis][b]) / (r2 * r2);
}

// Maze_repel takes the kernel for the processor.
TEST(Repulsion, BothKernelsAddTheForcesOfAllPairs) {
  Coordinates at;
  rand_seed(1);
  for (double &c : std::span(&at[0][0], 3 * places))
    c = rand_real(3);
  for (auto &axis : at)
    axis[5] = axis[2]; // one place: a force that is not finite
  for (int32_t n = 1; n <= places; ++n) {
    Coordinates wanted = {};
    for (int32_t a = 0; a < n; ++a)
      for (int32_t b = 0; b < n; ++b)
        if (a != b) add_force(at, a, b, &wanted);
    for (const auto kernel : {repel_by_two, repel_by_four}) {
      if (kernel == repel_by_four && !__builtin_cpu_supports("avx2")) continue;
      Coordinates made = {};
      kernel({n, at[0], at[1], at[2], made[0], made[1], made[2]});
      for (int32_t k = 0; k < 3 * places; ++k) {
        const double force = made[k / places][k % places], right = wanted[k / places][k % places];
        SCOPED_TRACE(testing::Message() << "number " << k << " of " << n << " places");
        ASSERT_EQ(std::isfinite(force), std::isfinite(right));
        if (!std::isfinite(right)) continue;
        ASSERT_NEAR(force, right, 1e-9 * (1 + std::abs(right)));
      }
    }
  }
}

} // namespace
