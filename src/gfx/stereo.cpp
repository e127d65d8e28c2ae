#include "gfx/stereo.h"

#include <cmath>
#include <numbers>

#include "gfx/gl.h"
#include "gfx/gl_procs.h"
#include "gfx/gl_util.h"
#include "gfx/platform.h"
#include "gfx/screen.h"
#include "gfx/tile.h"
#include "support/bits.h"
#include "support/colour.h"

namespace {

// Copies of the frame, sized to powers of two. Created on first use and again when the frame needs
// another size.
uint32_t stereo_eye_textures[2];
uint32_t stereo_eye_tex_width, stereo_eye_tex_height;
uint32_t interlace_texture;
uint32_t interlace_tex_width, interlace_tex_height;

StereoMixer mixer;

// How the eyes differ.
struct Eyes {
  double offset, neg_depth;
  double projection[16]; // the caller's, column by column
};

// The eyes of a mode, and the scene to draw for each.
struct Stereo {
  StereoScene scene;
  const void *context;
  Eyes eyes;
};

Stereo stereo_start(StereoScene scene, const void *context, double offset, double neg_depth) {
  Stereo stereo = {scene, context, {offset, neg_depth, {}}};
  glGetDoublev(GL_PROJECTION_MATRIX, stereo.eyes.projection);
  return stereo;
}

// Loads the off-axis projection of an eye. The side is -0.5 or 0.5.
void load_eye_projection(const Eyes &eyes, double side) {
  double projection[16];
  for (int i = 0; i < 16; i++)
    projection[i] = eyes.projection[i];
  projection[8] -= 2 * eyes.neg_depth * side;
  gfx_load_projection(projection);
}

// Draws the scene from the position of an eye, which is moved along the x axis of eye space.
void draw_eye(const Stereo &stereo, double side) {
  glPushMatrix();
  double modelview[16];
  glGetDoublev(GL_MODELVIEW_MATRIX, modelview);
  for (size_t column = 0; column < 4; column++)
    modelview[4 * column] += stereo.eyes.offset * side * modelview[4 * column + 3];
  glLoadMatrixd(modelview);
  stereo.scene(stereo.context);
  glPopMatrix();
}

double side_of(int32_t eye, int32_t swap) {
  const double side = eye - 0.5;
  return swap != 0 ? -side : side;
}

// Sets the projection of one screen of screen_width x screen_height: its central 4:3 region keeps a
// half field of view of atan(t).
void refit_projection(double t) {
  float projection[16];
  glGetFloatv(GL_PROJECTION_MATRIX, projection);
  const double c = 0.75 * t;
  const double g = t * screen_height / screen_width;
  projection[5] = static_cast<float>(1.0 / (c > g ? c : g));
  projection[0] = static_cast<float>(c > g ? 1.0 / (screen_width * c / screen_height) : 1.0 / t);
  gfx_load_projection(projection);
}

// A new texture for copies of the frame, left bound.
uint32_t frame_texture(uint32_t width, uint32_t height) {
  uint32_t name = 0;
  glGenTextures(1, &name);
  glBindTexture(GL_TEXTURE_2D, name);
  glCopyTexImage2D(GL_TEXTURE_2D, 0, GL_RGB8, 0, 0, static_cast<int32_t>(width),
                   static_cast<int32_t>(height), 0);
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
  return name;
}

// Creates `count` textures for the frame unless they exist in the right size.
void ensure_textures(uint32_t *names, int32_t count, uint32_t *width, uint32_t *height) {
  const uint32_t wanted_width = next_power_of_two(static_cast<uint32_t>(tile_width()));
  const uint32_t wanted_height = next_power_of_two(static_cast<uint32_t>(tile_height()));
  if (names[0] != 0 && *width == wanted_width && *height == wanted_height) return;
  if (names[0] != 0) glDeleteTextures(count, names);
  for (int32_t i = 0; i < count; i++)
    names[i] = frame_texture(wanted_width, wanted_height);
  *width = wanted_width;
  *height = wanted_height;
}

void copy_frame(uint32_t texture) {
  glBindTexture(GL_TEXTURE_2D, texture);
  glCopyTexSubImage2D(GL_TEXTURE_2D, 0, 0, 0, 0, 0, tile_width(), tile_height());
}

// Adds a copy of the frame, tinted with a colour.
void draw_tinted(uint32_t texture, uint32_t colour) {
  const int32_t width = tile_width(), upper = screen_height - tile_height();
  const float right = static_cast<float>(width) / static_cast<float>(stereo_eye_tex_width);
  const float top = static_cast<float>(tile_height()) / static_cast<float>(stereo_eye_tex_height);
  glBindTexture(GL_TEXTURE_2D, texture);
  gfx_set_colour(colour);
  glBegin(GL_QUADS);
  glTexCoord2f(0, 0);
  glVertex2i(0, screen_height);
  glTexCoord2f(right, 0);
  glVertex2i(width, screen_height);
  glTexCoord2f(right, top);
  glVertex2i(width, upper);
  glTexCoord2f(0, top);
  glVertex2i(0, upper);
  glEnd();
}

void draw_tinted_eyes(uint32_t first_colour, uint32_t second_colour) {
  gfx_push_2d();
  glEnable(GL_TEXTURE_2D);
  glDisable(GL_LIGHTING);
  if (mixer.begin != nullptr && mixer.begin(first_colour, second_colour)) {
    glDisable(GL_BLEND);
    gl.active_texture(GL_TEXTURE1);
    glBindTexture(GL_TEXTURE_2D, stereo_eye_textures[1]);
    gl.active_texture(GL_TEXTURE0);
    draw_tinted(stereo_eye_textures[0], colour_white);
    mixer.end();
  } else {
    glEnable(GL_BLEND);
    glBlendFunc(GL_ONE, GL_ONE);
    draw_tinted(stereo_eye_textures[0], first_colour);
    draw_tinted(stereo_eye_textures[1], second_colour);
  }
  glDisable(GL_BLEND);
  glDisable(GL_TEXTURE_2D);
  gfx_pop_2d();
}

// Draws the window's line y, counted from the top, from the half of the frame that has its eye. The
// half pixel keeps it off the boundary between two rows.
void interlace_line(int32_t y, int32_t parity) {
  const int32_t row = stereo_interlaced_row(y, screen_height, parity);
  const float t = (static_cast<float>(row) + 0.5F) / static_cast<float>(interlace_tex_height);
  const float right = static_cast<float>(screen_width) / static_cast<float>(interlace_tex_width);
  const float middle = static_cast<float>(y) + 0.5F;
  glTexCoord2f(0, t);
  glVertex2f(0, middle);
  glTexCoord2f(right, t);
  glVertex2f(static_cast<float>(screen_width), middle);
}

} // namespace

void stereo_render(StereoScene scene, const void *context, int32_t mode, int32_t swap,
                   double eye_offset, double neg_depth) {
  constexpr uint32_t colours[3][2] = {
      {0xFF0000, 0x00FFFF}, {0xFF0000, 0x00FF00}, {0xFF00FF, 0x00FF00}};
  const bool has_pixels = screen_width > 1 && screen_height > 1; // not while minimised
  if (mode == stereo_off) {
    scene(context);
  } else if (!has_pixels) {
    return;
  } else if (mode <= stereo_interlaced) {
    stereo_split(scene, context, swap, eye_offset, neg_depth, mode);
  } else if (mode <= stereo_screens_stacked) {
    stereo_two_screen(scene, context, swap, mode == stereo_screens_stacked ? 1 : 0, eye_offset,
                      neg_depth);
  } else if (mode <= stereo_magenta_green) {
    const auto &pair = colours[mode - stereo_red_cyan];
    const int first = swap != 0 ? 1 : 0;
    stereo_colour(scene, context, pair[first], pair[1 - first], eye_offset, neg_depth);
  }
}

void stereo_split(StereoScene scene, const void *context, int32_t swap, double eye_offset,
                  double neg_depth, int32_t mode) {
  const Stereo stereo = stereo_start(scene, context, eye_offset, neg_depth);
  for (int32_t eye = 0; eye < 2; eye++) {
    const double side = side_of(eye, swap);
    load_eye_projection(stereo.eyes, side);
    if (mode == stereo_side_by_side)
      tile_viewport(screen_width * eye / 2, 0, screen_width / 2, screen_height);
    else
      tile_viewport(0, screen_height * eye / 2, screen_width, screen_height / 2);
    draw_eye(stereo, side);
  }
  tile_viewport(0, 0, screen_width, screen_height);
  gfx_load_projection(stereo.eyes.projection);
  if (mode == stereo_interlaced) stereo_interlace(0);
}

void stereo_two_screen(StereoScene scene, const void *context, int32_t swap, int32_t vertical,
                       double eye_offset, double neg_depth) {
  const Stereo stereo = stereo_start(scene, context, eye_offset, neg_depth);
  const int32_t full_width = screen_width;
  const int32_t full_height = screen_height;
  const double t = std::tan(std::trunc(gfx_fov_43()) * std::numbers::pi / 360.0);
  (vertical != 0 ? screen_height : screen_width) /= 2;
  for (int32_t eye = 0; eye < 2; eye++) {
    const double side = side_of(eye, swap);
    load_eye_projection(stereo.eyes, side);
    refit_projection(t);
    tile_viewport(vertical != 0 ? 0 : screen_width * eye, vertical != 0 ? screen_height * eye : 0,
                  screen_width, screen_height);
    draw_eye(stereo, side);
  }
  screen_width = full_width;
  screen_height = full_height;
  tile_viewport(0, 0, screen_width, screen_height);
  gfx_load_projection(stereo.eyes.projection);
}

void stereo_colour(StereoScene scene, const void *context, uint32_t first_colour,
                   uint32_t second_colour, double eye_offset, double neg_depth) {
  const Stereo stereo = stereo_start(scene, context, eye_offset, neg_depth);
  ensure_textures(stereo_eye_textures, 2, &stereo_eye_tex_width, &stereo_eye_tex_height);
  for (int32_t eye = 0; eye < 2; eye++) {
    const double side = side_of(eye, 0);
    load_eye_projection(stereo.eyes, side);
    draw_eye(stereo, side);
    copy_frame(stereo_eye_textures[eye]);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
  }
  gfx_load_projection(stereo.eyes.projection);
  draw_tinted_eyes(first_colour, second_colour);
}

void stereo_set_mixer(const StereoMixer &chosen) {
  mixer = chosen;
}

int32_t stereo_interlaced_row(int32_t y, int32_t height, int32_t parity) {
  const int32_t half = ((parity + y) & 1) ^ 1;
  return half * height / 2 + (height - 1 - y) / 2;
}

void stereo_interlace(int32_t parity) {
  parity ^= platform_window_rect().top & 1;
  ensure_textures(&interlace_texture, 1, &interlace_tex_width, &interlace_tex_height);
  copy_frame(interlace_texture);
  gfx_push_2d();
  glEnable(GL_TEXTURE_2D);
  glDisable(GL_LIGHTING);
  glDisable(GL_BLEND);
  glColor3f(1, 1, 1);
  glBegin(GL_LINES);
  for (int32_t y = screen_height; y-- > 0;)
    interlace_line(y, parity);
  glEnd();
  glDisable(GL_TEXTURE_2D);
  gfx_pop_2d();
}
