#include "generate/repulsion_kernel.h"

void repel_sse2(const RepulsionField &field) {
  using Two = double __attribute__((vector_size(2 * sizeof(double))));
  repel_all<Two>(field);
}
