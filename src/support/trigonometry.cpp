#include "support/trigonometry.h"

#include <array>
#include <cmath>
#include <cstdint>

namespace {

// A number of about 106 bits: high + low, where low is at most half a unit in the last place of
// high. See T. J. Dekker, "A Floating-Point Technique for Extending the Available Precision", 1971.
// Compilers must not contract or reorder this arithmetic.
struct Pair {
  double high, low;
};

Pair exact_sum(double a, double b) {
  const double high = a + b, b_part = high - a;
  return {high, (a - (high - b_part)) + (b - b_part)};
}

// The upper 26 bits: products of halves are exact.
double upper_half(double a) {
  const double scaled = 134217729.0 * a; // 2^27 + 1
  return scaled - (scaled - a);
}

Pair exact_product(double a, double b) {
  const double a1 = upper_half(a), a2 = a - a1, b1 = upper_half(b), b2 = b - b1;
  const double high = a * b;
  return {high, ((a1 * b1 - high) + a1 * b2 + a2 * b1) + a2 * b2};
}

Pair operator+(Pair a, Pair b) {
  const Pair sum = exact_sum(a.high, b.high);
  return exact_sum(sum.high, sum.low + (a.low + b.low));
}

Pair operator-(Pair a) {
  return {-a.high, -a.low};
}

Pair operator*(Pair a, Pair b) {
  const Pair product = exact_product(a.high, b.high);
  return exact_sum(product.high, product.low + (a.high * b.low + a.low * b.high));
}

Pair operator/(Pair a, double b) {
  const double high = a.high / b;
  const Pair back = exact_product(high, b);
  return exact_sum(high, ((a.high - back.high) - back.low + a.low) / b);
}

// The Taylor series 1 - z / (n (n + 1)) (1 - z / ((n + 2) (n + 3)) (1 - ...)) of so many terms.
// With z = x * x it is cos(x) for n = 1, and sin(x) / x for n = 2.
Pair series(Pair z, int n, int terms) {
  Pair sum = {1, 0};
  for (int k = n + 2 * terms; k >= n; k -= 2)
    sum = Pair{1, 0} + -(z * sum / (k * (k + 1)));
  return sum;
}

constexpr int32_t steps = 512, quarter = steps / 4; // of a turn
constexpr double step_1 = 0x1.921fb54p-7, step_2 = 0x1.10b4611a62633p-37,
                 step_3 = 0x1.45c06e0e68948p-93; // pi / 256 in parts
constexpr double steps_per_radian = 0x1.45f306dc9c883p+6;
constexpr double max_angle = 1e5; // multiples of step_1 up to there are exact

// The sines of all steps.
std::array<Pair, steps> sine_table() {
  std::array<Pair, steps> table;
  for (int32_t k = -steps / 2; k < steps / 2; k++) {
    const Pair x = Pair{k * step_1, 0} + exact_product(k, step_2) + Pair{k * step_3, 0};
    table[static_cast<size_t>(k & (steps - 1))] = x * series(x * x, 2, 22);
  }
  return table;
}

// An angle as the nearest step, with its sine and cosine, and the rest.
struct SplitAngle {
  double k, rest; // the rest is this less k (step_2 + step_3)
  Pair sine, cosine;
};

SplitAngle split_angle(double angle, int64_t shift) {
  static const std::array<Pair, steps> table = sine_table();
  const double k = std::nearbyint(angle * steps_per_radian);
  const int64_t index = static_cast<int64_t>(k) + shift;
  return {k, angle - k * step_1, table[static_cast<size_t>(index & (steps - 1))],
          table[static_cast<size_t>((index + quarter) & (steps - 1))]};
}

struct Direction {
  Pair sine, cosine;
};

Direction exact_direction(const SplitAngle &a) {
  const Pair x = Pair{a.rest, 0} + -exact_product(a.k, step_2) + Pair{-a.k * step_3, 0};
  const Pair z = x * x, cosine = series(z, 1, 4), sine = x * series(z, 2, 4);
  return {a.sine * cosine + a.cosine * sine, a.cosine * cosine + -(a.sine * sine)};
}

// The sine of an angle that is moved by so many steps. Takes the exact one only where the error of
// a quick one could change the rounding.
double rounded_sine(double angle, int64_t shift) {
  const SplitAngle a = split_angle(angle, shift);
  const Pair x = exact_sum(a.rest, -a.k * step_2);
  const double z = x.high * x.high, product = a.cosine.high * x.high;
  const Pair sum = exact_sum(a.sine.high, product);
  const double cubic = x.low - x.high * z * (1.0 / 6 - z * (1.0 / 120));
  const double low =
      sum.low + (a.sine.low + (a.cosine.low * x.high + a.cosine.high * cubic -
                               a.sine.high * z * (0.5 - z * (1.0 / 24 - z * (1.0 / 720)))));
  const double error = 2e-16 * std::abs(product) + 1e-25 * std::abs(a.k);
  const double result = sum.high + (low - error);
  return result == sum.high + (low + error) ? result : exact_direction(a).sine.high;
}

} // namespace

double portable_sin(double angle) {
  return std::abs(angle) <= max_angle ? rounded_sine(angle, 0) : std::sin(angle);
}

double portable_cos(double angle) {
  return std::abs(angle) <= max_angle ? rounded_sine(angle, quarter) : std::cos(angle);
}

double portable_atan2(double y, double x) {
  const double angle = std::atan2(y, x);
  if (x == 0 || y == 0 || !std::isfinite(angle)) return angle; // the same everywhere
  // One step of Newton's method replaces the last bit.
  const Direction at = exact_direction(split_angle(angle, 0));
  const Pair across = at.cosine * Pair{y, 0} + -(at.sine * Pair{x, 0});
  const double step = across.high / (at.cosine.high * x + at.sine.high * y);
  return std::isfinite(step) ? angle + step : angle;
}
