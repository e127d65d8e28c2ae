#pragma once

#include <bit>
#include <cstdint>

// `v` itself if it is a power of two or 0, else the next power of two above it; 0 where that has
// no place in 32 bits.
constexpr uint32_t next_power_of_two(uint32_t v) {
  if (v > UINT32_C(1) << 31) return 0;
  return v == 0 ? 0 : std::bit_ceil(v);
}
