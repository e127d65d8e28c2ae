#include "support/random.h"

namespace {

constexpr double per_draw = 1.0 / 32768.0; // a draw is 15 bits
uint32_t state = 1;

} // namespace

void rand_seed(uint32_t seed) {
  state = seed;
}

int32_t rand15() {
  state = state * 214013U + 2531011U;
  return static_cast<int32_t>((state >> 16) & 0x7FFFU);
}

double rand_real(double x) {
  const int32_t r1 = rand15();
  const int32_t r2 = rand15();
  return (r1 * per_draw + r2) * (x * per_draw);
}

int32_t rand_int(int32_t n) {
  const int32_t r1 = rand15();
  const int32_t r2 = rand15();
  const auto k = static_cast<int32_t>(n * per_draw * (r1 * per_draw + r2));
  return n > k ? k : 0; // the fraction is below 1, so k reaches n only for an n below 1
}
