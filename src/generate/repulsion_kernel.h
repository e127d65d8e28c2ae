#pragma once

#include <cstdint>

// The inner loops of the repulsion, for vectors of two doubles (SSE2) and of four (AVX2). Shared
// functions are static, lest the linker choose an AVX2 version for a CPU without it.

// Positions and accumulated forces, by coordinate.
struct RepulsionField {
  int32_t count;
  const double *x, *y, *z;
  double *fx, *fy, *fz;
};

void repel_sse2(const RepulsionField &field);
void repel_avx2(const RepulsionField &field);

template <typename Lanes> static inline Lanes load_lanes(const double *from) {
  Lanes lanes;
  __builtin_memcpy(&lanes, from, sizeof lanes);
  return lanes;
}

template <typename Lanes> static inline void store_lanes(double *to, const Lanes &lanes) {
  __builtin_memcpy(to, &lanes, sizeof lanes);
}

// Adds the forces between a block of positions from index a and one vector of positions from index
// b. Those on the block go to `forces`, lane by lane.
template <typename Lanes, int32_t block>
static inline void repel_lanes(const RepulsionField &f, int32_t a, int32_t b, Lanes (*forces)[3]) {
  const Lanes x = load_lanes<Lanes>(f.x + b);
  const Lanes y = load_lanes<Lanes>(f.y + b);
  const Lanes z = load_lanes<Lanes>(f.z + b);
  Lanes fx = load_lanes<Lanes>(f.fx + b);
  Lanes fy = load_lanes<Lanes>(f.fy + b);
  Lanes fz = load_lanes<Lanes>(f.fz + b);
  for (int32_t i = 0; i < block; i++) {
    const Lanes dx = x - f.x[a + i];
    const Lanes dy = y - f.y[a + i];
    const Lanes dz = z - f.z[a + i];
    const Lanes r2 = dx * dx + dy * dy + dz * dz;
    const Lanes w = 1.0 / (r2 * r2);
    fx += dx * w;
    fy += dy * w;
    fz += dz * w;
    forces[i][0] -= dx * w;
    forces[i][1] -= dy * w;
    forces[i][2] -= dz * w;
  }
  store_lanes(f.fx + b, fx);
  store_lanes(f.fy + b, fy);
  store_lanes(f.fz + b, fz);
}

// Adds the lanes of `force` to the force on position a.
template <typename Lanes>
static inline void gather_force(const RepulsionField &f, int32_t a, const Lanes *force) {
  double *const sums[] = {f.fx + a, f.fy + a, f.fz + a};
  for (int32_t axis = 0; axis < 3; axis++)
    for (uint32_t lane = 0; lane < sizeof(Lanes) / sizeof(double); lane++)
      *sums[axis] += force[axis][lane];
}

// Adds the forces between the block of positions from index a and those in [first, end).
template <typename Lanes, int32_t block>
static inline void repel_block(const RepulsionField &f, int32_t a, int32_t first, int32_t end) {
  using One = double __attribute__((vector_size(sizeof(double))));
  constexpr int32_t width = sizeof(Lanes) / sizeof(double);
  Lanes forces[block][3] = {};
  One rest[block][3] = {};
  int32_t b = first;
  for (; b + width <= end; b += width)
    repel_lanes<Lanes, block>(f, a, b, forces);
  for (; b < end; b++)
    repel_lanes<One, block>(f, a, b, rest);
  for (int32_t i = 0; i < block; i++) {
    gather_force(f, a + i, forces[i]);
    gather_force(f, a + i, rest[i]);
  }
}

// Blocks of two halve the loads and stores of the other positions.
template <typename Lanes> static inline void repel_all(const RepulsionField &all) {
  const RepulsionField field = all; // a local copy can't alias the stores below
  int32_t a = 0;
  for (; a + 2 <= field.count; a += 2) {
    repel_block<Lanes, 2>(field, a, 0, a);
    repel_block<Lanes, 1>(field, a + 1, a, a + 1);
  }
  for (; a < field.count; a++)
    repel_block<Lanes, 1>(field, a, 0, a);
}
