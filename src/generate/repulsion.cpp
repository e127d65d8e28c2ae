#include "generate/repulsion.h"

#include "generate/repulsion_kernel.h"

namespace {

// Whether this processor has registers of four numbers, which the wide kernel needs.
bool has_wide_registers() {
#ifdef VOREL_WIDE_KERNEL
  return static_cast<int>(__builtin_cpu_supports("avx2")) != 0;
#else
  return false;
#endif
}

} // namespace

std::vector<Vec3> repulsion(const std::vector<Vec3> &places) {
  const size_t n = places.size();
  std::vector<double> columns(6 * n, 0.0); // x, y and z of places, then of forces
  for (size_t i = 0; i < n; i++) {
    columns[i] = places[i].x;
    columns[n + i] = places[i].y;
    columns[2 * n + i] = places[i].z;
  }
  double *start = columns.data();
  const RepulsionField field = {static_cast<int32_t>(n), start,         start + n,    start + 2 * n,
                                start + 3 * n,           start + 4 * n, start + 5 * n};
  (has_wide_registers() ? repel_by_four : repel_by_two)(field);
  std::vector<Vec3> forces(n);
  for (size_t i = 0; i < n; i++)
    forces[i] = {field.fx[i], field.fy[i], field.fz[i]};
  return forces;
}
