#pragma once

#include <bit>
#include <cstdint>

// The smallest power of two that is at least `v`; 0 for 0, and where the result exceeds 32 bits.
constexpr uint32_t next_power_of_two(uint32_t v) {
  if (v > UINT32_C(1) << 31) return 0;
  return v == 0 ? 0 : std::bit_ceil(v);
}
