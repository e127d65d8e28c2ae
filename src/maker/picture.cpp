#include "maker/picture.h"

#include <algorithm>
#include <cstdio>
#include <numbers>

#include "gfx/gl.h"
#include "gfx/offscreen.h"
#include "gfx/stereo.h"
#include "gfx/texture.h"
#include "gfx/tile.h"
#include "gfx/window.h"
#include "maker/picture_camera.h"
#include "maker/plot_names.h"
#include "maker/png.h"
#include "maker/progress.h"
#include "maker/user_files.h"
#include "render/gl/shaderprocs.h"
#include "render/gl/view.h"
#include "render/plot_switches.h"
#include "render/scene.h"
#include "support/file.h"
#include "text/built_in_fonts.h"
#include "world/move.h"

namespace {

constexpr int32_t tile_side = 4096; // pixels, at most

void set_switches(const Options &options, const World &world) {
  const NamedPlot &plot = *plot_find(options.plot);
  plot_type = plot.type;
  plot_fixed = plot.fixed ? 1 : 0;
  plot_voronoi = plot.landscape >= 0 ? 1 : 0;
  if (plot.landscape >= 0) voronoi_mode = plot.landscape;
  plot_light = options.lights ? 1 : 0;
  plot_grid = options.grid ? 1 : 0;
  plot_connected = options.reach ? 1 : 0;
  plot_roamers = world.roamers.count > 0;
}

// Draws one tile of the frame and copies it to its place in the picture.
void draw_tile(const World &world, int32_t mode, int32_t x, int32_t y, int32_t side, Image *image) {
  const int32_t width = std::min(side, image->width - x),
                height = std::min(side, image->height - y);
  tile_set(x, y, width, height);
  gfx_resize(image->width, image->height);
  glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
  glLoadIdentity();
  World_apply_view(&world);
  scene_draw(&world, World_follow_point(&world), mode, 0, picture_stereo_depth);
  glPixelStorei(GL_PACK_ALIGNMENT, 1);
  for (int32_t row = 0; row < height; row++) {
    const auto line = static_cast<size_t>(image->height - 1 - y - row);
    const size_t at = 3 * (line * static_cast<size_t>(image->width) + static_cast<size_t>(x));
    glReadPixels(0, row, width, 1, GL_RGB, GL_UNSIGNED_BYTE, &image->rgb[at]);
  }
  glPixelStorei(GL_PACK_ALIGNMENT, 4); // the default, which other readers expect
}

int32_t tiles_along(int32_t length, int32_t side) {
  return (length + side - 1) / side;
}

// Which picture of how many is drawn.
struct Frame {
  int32_t number, count;
};

bool draw_tiles(const World &world, int32_t mode, const Frame &frame, Image *image) {
  const int32_t side = std::min(tile_side, std::max(image->width, image->height));
  const int32_t columns = tiles_along(image->width, side);
  const int32_t count = columns * tiles_along(image->height, side);
  Offscreen target;
  if (!offscreen_begin(&target, std::min(side, image->width), std::min(side, image->height), true))
    return false;
  for (int32_t i = 0; i < count; i++) {
    progress_show("drawing", int64_t{frame.number} * count + i + 1, int64_t{frame.count} * count);
    draw_tile(world, mode, i % columns * side, i / columns * side, side, image);
  }
  tile_unset();
  offscreen_end(&target);
  return true;
}

// Interlaces a picture that has one eye above the other.
void interlace(Image *image) {
  const std::vector<uint8_t> split = image->rgb;
  const int64_t row_bytes = int64_t{3} * image->width;
  for (int32_t y = 0; y < image->height; y++) {
    const int32_t row = image->height - 1 - stereo_interlaced_row(y, image->height, 0);
    std::copy_n(split.begin() + row * row_bytes, row_bytes, image->rgb.begin() + y * row_bytes);
  }
}

// "name.png" becomes "name-007.png".
std::string numbered(const std::string &path, int32_t number, int32_t count) {
  const size_t folder = path.find_last_of("/\\"), dot = path.rfind('.');
  const bool has_ending = dot != std::string::npos && (folder == std::string::npos || dot > folder);
  const size_t end = has_ending ? dot : path.size();
  char digits[16];
  std::snprintf(digits, sizeof digits, "-%0*d", static_cast<int>(std::to_string(count - 1).size()),
                number);
  return path.substr(0, end) + digits + path.substr(end);
}

int32_t frame_count(const Options &options) {
  return std::max(options.turntable, 1);
}

std::string path_of_frame(const Options &options, int32_t frame) {
  if (options.turntable == 0) return options.picture;
  return numbered(options.picture, frame, options.turntable);
}

// Whether a picture would replace the session that has just been saved.
bool is_session(const Options &options, const std::string &path) {
  const FileIdentity picture = file_identity(path);
  return !options.save.empty() && picture.exists && picture == file_identity(options.save);
}

bool save_frame(const Options &options, const World &world, const Frame &frame) {
  const std::string path = path_of_frame(options, frame.number);
  Image image = {options.width, options.height, {}};
  image.rgb.resize(size_t{3} * static_cast<size_t>(image.width) *
                   static_cast<size_t>(image.height));
  const bool interlaced = options.stereo == stereo_interlaced;
  if (!draw_tiles(world, interlaced ? stereo_top_bottom : options.stereo, frame, &image))
    return report_file_error(path, "can't be drawn",
                             "the OpenGL driver has no framebuffer objects of that size: choose a "
                             "smaller --size, or install Mesa's software driver");
  if (interlaced) interlace(&image);
  progress_show("writing", frame.number + 1, frame.count);
  if (!may_write(options, path)) return false; // it can have been made meanwhile
  if (is_session(options, path)) return report_file_error(path, "is the session", "by --save");
  std::string error;
  return png_save(image, path, &error) ||
         report_file_error(path, "can't be written", error.c_str());
}

// Whether the driver can draw the pictures. Otherwise reports a sentence.
bool driver_suffices(const Options &options) {
  if (shaders_available() == 0)
    return report_file_error(
        options.picture, "can't be drawn",
        "OpenGL 2.0 is needed: install a newer driver of the graphics card, or "
        "Mesa's software driver");
  int32_t limits[2] = {};
  glGetIntegerv(GL_MAX_VIEWPORT_DIMS, limits);
  if (options.width <= limits[0] && options.height <= limits[1]) return true;
  const std::string cause = "the OpenGL driver draws at most " + std::to_string(limits[0]) + "x" +
                            std::to_string(limits[1]) + " pixels: choose a smaller --size";
  return report_file_error(options.picture, "can't be drawn", cause.c_str());
}

bool save_frames(const Options &options, World *world) {
  const int32_t frames = frame_count(options);
  font_build_normal();
  font_build_fmod();
  set_switches(options, *world);
  const PictureCamera plan = camera_plan(options, world);
  for (int32_t frame = 0; frame < frames; frame++) {
    camera_place(plan, 2 * std::numbers::pi * frame / frames, world);
    if (!save_frame(options, *world, {frame, frames})) return false;
  }
  return true;
}

} // namespace

bool picture_may_write(const Options &options) {
  for (int32_t frame = 0; frame < frame_count(options); frame++)
    if (!may_write(options, path_of_frame(options, frame))) return false;
  return true;
}

bool picture_draw(const Options &options, World *world) {
  progress_show("drawing");
  textures_keep_component_count = 1; // as in the program
  if (!gfx_open_hidden("vorel-maze")) return false;
  projection_is_2d = 0;
  const bool saved = driver_suffices(options) && save_frames(options, world);
  gfx_close();
  return saved;
}
