#include "generate/repulsion_kernel.h"

void repel_avx2(const RepulsionField &field) {
  using Four = double __attribute__((vector_size(4 * sizeof(double))));
  repel_all<Four>(field);
}
