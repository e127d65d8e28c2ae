#include "gfx/tile.h"

#include "gfx/gl.h"
#include "gfx/screen.h"

namespace {

// Without sides if the framebuffer holds the whole picture.
struct Tile {
  int32_t x, y, width, height;
};

Tile tile;

} // namespace

void tile_set(int32_t x, int32_t y, int32_t width, int32_t height) {
  tile = {x, y, width, height};
}

void tile_unset() {
  tile = {};
}

int32_t tile_width() {
  return tile.width > 0 ? tile.width : screen_width;
}

int32_t tile_height() {
  return tile.width > 0 ? tile.height : screen_height;
}

void tile_viewport(int32_t x, int32_t y, int32_t width, int32_t height) {
  glViewport(x - tile.x, y - tile.y, width, height);
}
