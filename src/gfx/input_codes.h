#pragma once

#include <cstdint>

// Codes of mouse buttons and keys.

// Bits of the button word.
constexpr uint32_t mouse_left = 1;
constexpr uint32_t mouse_right = 2;
constexpr uint32_t mouse_wheel_forward = 4; // turned since the last pump
constexpr uint32_t mouse_wheel_backward = 8;
constexpr uint32_t mouse_middle = 16;

// Virtual-key codes. Letters and digits have their ASCII codes.
enum VirtualKey : int32_t {
  vk_tab = 9,
  vk_shift = 16,
  vk_control = 17,
  vk_alt = 18,
  vk_escape = 27,
  vk_space = 32,
  vk_left = 37,
  vk_up = 38,
  vk_right = 39,
  vk_down = 40,
  vk_f3 = 114,
  vk_f4 = 115,
  vk_f5 = 116,
  vk_f6 = 117,
};
