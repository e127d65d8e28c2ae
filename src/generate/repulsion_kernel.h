#pragma once

#include <cstdint>

// The inner loops of the repulsion, for registers of two and of four numbers. The wide ones are
// compiled for processors that have them: nothing else may be inlined into their file, lest it be
// linked into what runs everywhere.

// Places, and the forces on them so far, by coordinate.
struct RepulsionField {
  int32_t count;
  const double *x, *y, *z;
  double *fx, *fy, *fz;
};

void repel_by_two(const RepulsionField &field);
void repel_by_four(const RepulsionField &field);

template <typename Lanes> inline Lanes load_lanes(const double *from) {
  Lanes lanes;
  __builtin_memcpy(&lanes, from, sizeof lanes);
  return lanes;
}

template <typename Lanes> inline void add_lanes(double *to, const Lanes &lanes) {
  const Lanes sum = load_lanes<Lanes>(to) + lanes;
  __builtin_memcpy(to, &sum, sizeof sum);
}

// Pushes place a and the places from b on, one a lane, apart; adds a's share to `force`.
template <typename Lanes>
inline void repel_lanes(const RepulsionField &f, int32_t a, int32_t b, Lanes *force) {
  const Lanes dx = load_lanes<Lanes>(f.x + b) - f.x[a];
  const Lanes dy = load_lanes<Lanes>(f.y + b) - f.y[a];
  const Lanes dz = load_lanes<Lanes>(f.z + b) - f.z[a];
  const Lanes r2 = dx * dx + dy * dy + dz * dz;
  const Lanes w = 1.0 / (r2 * r2);
  add_lanes(f.fx + b, dx * w);
  add_lanes(f.fy + b, dy * w);
  add_lanes(f.fz + b, dz * w);
  force[0] -= dx * w;
  force[1] -= dy * w;
  force[2] -= dz * w;
}

// Adds the lanes of a force on place a to it.
template <typename Lanes>
inline void gather_force(const RepulsionField &f, int32_t a, const Lanes *force) {
  double *const sums[] = {f.fx + a, f.fy + a, f.fz + a};
  for (int32_t axis = 0; axis < 3; ++axis)
    for (uint32_t lane = 0; lane < sizeof(Lanes) / sizeof(double); ++lane)
      *sums[axis] += force[axis][lane];
}

template <typename Lanes> inline void repel_all(const RepulsionField &field) {
  using One = double __attribute__((vector_size(sizeof(double))));
  constexpr int32_t width = sizeof(Lanes) / sizeof(double);
  for (int32_t a = 1; a < field.count; ++a) {
    Lanes force[3] = {};
    One rest[3] = {};
    int32_t b = 0;
    for (; b + width <= a; b += width)
      repel_lanes<Lanes>(field, a, b, force);
    for (; b < a; ++b)
      repel_lanes<One>(field, a, b, rest);
    gather_force(field, a, force);
    gather_force(field, a, rest);
  }
}
