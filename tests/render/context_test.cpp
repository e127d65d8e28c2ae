#include <optional>

#include <gtest/gtest.h>

#include "gfx/gl.h"
#include "gfx/window.h"
#include "picture.h"
#include "render/gl/view.h"
#include "render/plot.h"
#include "scenarios.h"
#include "world/small_world.h"

static int lists_deleted = 0;

// Replaces the library's function, which on some systems ignores a call without a context.
extern "C" void glDeleteLists(GLuint, GLsizei) {
  lists_deleted++;
}

// The leak checker crashes if a thread of the driver ends meanwhile, as after gfx_close.
extern "C" const char *__asan_default_options() {
  return "detect_leaks=0";
}

// A program of its own, since a process has one context and this test ends it.
TEST(Context, MazesMayOutliveItAndClosingTwiceIsSafe) {
  std::optional<SmallWorld> worlds[2];
  for (auto &world : worlds) {
    world.emplace(scenario_path(2));
    picture_begin();
    view_use(view_make(&*world, {}, eye_matrices_read(), nullptr));
    plot_world(&*world);
  }
  worlds[0].reset();
  EXPECT_EQ(lists_deleted, 1);
  gfx_close();
  gfx_close();
  worlds[1].reset();
  EXPECT_EQ(lists_deleted, 1);
}
