#include "picture.h"

#include <algorithm>
#include <cstdlib>

#include "gfx/gl.h"
#include "gfx/window.h"

static size_t pixel_index(int x, int y) {
  return static_cast<size_t>(y) * picture_width + static_cast<size_t>(x);
}

void picture_begin() {
  if (!gfx_context_alive()) {
    windowed = 1;
    projection_is_2d = 0;
    if (gfx_open(picture_width, picture_height, "test") == 0) std::abort();
  }
  gfx_resize(picture_width, picture_height);
  glMatrixMode(GL_MODELVIEW);
  glLoadIdentity();
  glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
}

Picture picture_take() {
  Picture picture;
  picture.bgra.resize(size_t{picture_width} * picture_height * 4);
  picture.depth.resize(size_t{picture_width} * picture_height);
  for (int y = 0; y < picture_height; y++) {
    const size_t first = pixel_index(0, picture_height - 1 - y);
    glReadPixels(0, y, picture_width, 1, GL_BGRA, GL_UNSIGNED_BYTE, &picture.bgra[first * 4]);
    glReadPixels(0, y, picture_width, 1, GL_DEPTH_COMPONENT, GL_FLOAT, &picture.depth[first]);
  }
  return picture;
}

uint32_t picture_colour(const Picture &picture, int x, int y) {
  const uint8_t *pixel = &picture.bgra[pixel_index(x, y) * 4];
  return static_cast<uint32_t>(pixel[2] << 16 | pixel[1] << 8 | pixel[0]);
}

float picture_depth(const Picture &picture, int x, int y) {
  return picture.depth[pixel_index(x, y)];
}

int colour_distance(uint32_t a, uint32_t b) {
  int distance = 0;
  for (int shift = 0; shift < 24; shift += 8) {
    const auto channel = [shift](uint32_t c) { return static_cast<int>(c >> shift & 255); };
    distance = std::max(distance, std::abs(channel(a) - channel(b)));
  }
  return distance;
}
