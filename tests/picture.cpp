#include "picture.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "gfx/gl.h"
#include "gfx/window.h"

namespace {

constexpr double eye_height = 16.0;
constexpr double pixels_per_unit = picture_width / 2 / eye_height;

size_t pixel_index(int x, int y) {
  return static_cast<size_t>(y) * picture_width + static_cast<size_t>(x);
}

template <typename Value> void flip_rows(std::vector<Value> *pixels, size_t row) {
  for (size_t top = 0, bottom = picture_height - 1; top < bottom; top++, bottom--) {
    std::swap_ranges(pixels->begin() + static_cast<std::ptrdiff_t>(top * row),
                     pixels->begin() + static_cast<std::ptrdiff_t>((top + 1) * row),
                     pixels->begin() + static_cast<std::ptrdiff_t>(bottom * row));
  }
}

} // namespace

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
  glReadPixels(0, 0, picture_width, picture_height, GL_BGRA, GL_UNSIGNED_BYTE, picture.bgra.data());
  glReadPixels(0, 0, picture_width, picture_height, GL_DEPTH_COMPONENT, GL_FLOAT,
               picture.depth.data());
  flip_rows(&picture.bgra, size_t{picture_width} * 4);
  flip_rows(&picture.depth, size_t{picture_width});
  return picture;
}

uint32_t picture_colour(const Picture &picture, int x, int y) {
  const uint8_t *pixel = &picture.bgra[pixel_index(x, y) * 4];
  return static_cast<uint32_t>(pixel[2] << 16 | pixel[1] << 8 | pixel[0]);
}

float picture_depth(const Picture &picture, int x, int y) {
  return picture.depth[pixel_index(x, y)];
}

double picture_eye_z(float depth) {
  return 0.20002 / (2.0 * static_cast<double>(depth) - 1.0 - 1.0002);
}

int colour_distance(uint32_t a, uint32_t b) {
  int distance = 0;
  for (int shift = 0; shift < 24; shift += 8) {
    const auto channel = [shift](uint32_t c) { return static_cast<int>(c >> shift & 255); };
    distance = std::max(distance, std::abs(channel(a) - channel(b)));
  }
  return distance;
}

World world_from_above(Maze *root, Pos cur) {
  World world = {};
  world.root = root;
  world.cur = cur;
  world.time = 100.0;
  world.view = mat3_identity;
  world.camera = {0, 0, eye_height};
  world.zoom = eye_height;
  world.showtrail = 1;
  return world;
}

int pixel_x(double x) {
  return static_cast<int>(std::floor(picture_width / 2 + x * pixels_per_unit));
}

int pixel_y(double y) {
  return static_cast<int>(std::floor(picture_height / 2 - y * pixels_per_unit));
}
