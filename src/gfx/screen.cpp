#include "gfx/screen.h"

int32_t screen_width;
int32_t screen_height;
uint8_t windowed;
int32_t fullscreen_offset_x;
int32_t fullscreen_offset_y;
uint8_t projection_is_2d = 1;
