#include "gfx/projection.h"

#include <algorithm>
#include <bit>

namespace {

// The depth elements are given as bits: computing them from the near and far planes would change
// their last digits, and with them the pictures.
constexpr float depth_scale_default = std::bit_cast<float>(0xBF80068DU);  // -1.0002
constexpr float depth_offset_default = std::bit_cast<float>(0xBE4CD20BU); // -0.20002
constexpr float depth_scale_slab = std::bit_cast<float>(0xBF80068BU);     // -1.0001997
constexpr float depth_offset_far = std::bit_cast<float>(0xC4FA0664U);     // -2000.1997
constexpr float depth_offset_near = std::bit_cast<float>(0xBE4CD209U);    // -0.20001997

} // namespace

void projection_perspective(int32_t width, int32_t height, float out[16]) {
  int64_t w = std::max(width, 1);
  int64_t h = std::max(height, 1);
  std::fill(out, out + 16, 0.0F);
  if (3 * w > 4 * h) {
    out[0] = static_cast<float>(1.0 / (static_cast<double>(w) * 0.75 / static_cast<double>(h)));
    out[5] = 1.3333334F;
  } else {
    out[0] = 1.0F;
    out[5] = static_cast<float>(static_cast<double>(w) / static_cast<double>(h));
  }
  out[10] = depth_scale_default;
  out[11] = -1.0F;
  out[14] = depth_offset_default;
}

void projection_ortho(double left, double right, double bottom, double top, double near, double far,
                      float out[16]) {
  std::fill(out, out + 16, 0.0F);
  out[0] = out[5] = out[10] = out[15] = 1.0F;
  if (left == right || bottom == top || near == far) return;
  out[0] = static_cast<float>(2 / (right - left));
  out[5] = static_cast<float>(2 / (top - bottom));
  out[10] = static_cast<float>(-2 / (far - near));
  out[12] = static_cast<float>(-(right + left) / (right - left));
  out[13] = static_cast<float>(-(top + bottom) / (top - bottom));
  out[14] = static_cast<float>(-(far + near) / (far - near));
}

void projection_far_slab(float matrix[16]) {
  matrix[10] = depth_scale_slab;
  matrix[14] = depth_offset_far;
}

void projection_near_slab(float matrix[16]) {
  matrix[10] = depth_scale_slab;
  matrix[14] = depth_offset_near;
}
