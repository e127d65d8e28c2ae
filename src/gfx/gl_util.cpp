#include "gfx/gl_util.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <iterator>

#include "gfx/gl.h"
#include "gfx/projection.h"
#include "gfx/screen.h"
#include "support/colour.h"

namespace {

constexpr double degrees_per_half_angle = 114.59155902616465; // 360 / pi

// Half the frame's width at a distance of 1.
double half_width_tangent() {
  float matrix[16];
  glGetFloatv(GL_PROJECTION_MATRIX, matrix);
  return 1 / static_cast<double>(matrix[0]);
}

// out = m v, with m column by column.
void transform(const double *m, const double v[4], double out[4]) {
  for (int row = 0; row < 4; row++)
    out[row] = m[row] * v[0] + m[4 + row] * v[1] + m[8 + row] * v[2] + m[12 + row] * v[3];
}

// GL strings are unsigned bytes; the C library takes plain characters.
const char *gl_string(GLenum name) {
  const void *text = glGetString(name);
  return text == nullptr ? "" : static_cast<const char *>(text);
}

} // namespace

double gl_version() {
  return std::atof(gl_string(GL_VERSION));
}

bool gl_has_extension(int32_t *answer, const char *name) {
  if (*answer >= 0) return *answer != 0;
  *answer = 0;
  size_t length = std::strlen(name);
  const char *all = gl_string(GL_EXTENSIONS);
  for (const char *at = std::strstr(all, name); at != nullptr; at = std::strstr(at + 1, name)) {
    bool starts = at == all || at[-1] == ' ';
    bool ends = at[length] == ' ' || at[length] == '\0';
    if (starts && ends) *answer = 1;
  }
  return *answer != 0;
}

bool gl_is_software() {
  constexpr const char *names[] = {"llvmpipe", "softpipe", "Software Rasterizer", "GDI Generic"};
  const char *renderer = gl_string(GL_RENDERER);
  return std::any_of(std::begin(names), std::end(names), [renderer](const char *name) {
    return std::strstr(renderer, name) != nullptr;
  });
}

void gfx_set_colour(uint32_t colour) {
  glColor3ub(colour_red(colour), colour_green(colour), colour_blue(colour));
}

void gfx_load_projection(const float matrix[16]) {
  glMatrixMode(GL_PROJECTION);
  glLoadMatrixf(matrix);
  glMatrixMode(GL_MODELVIEW);
}

void gfx_load_projection(const double matrix[16]) {
  glMatrixMode(GL_PROJECTION);
  glLoadMatrixd(matrix);
  glMatrixMode(GL_MODELVIEW);
}

void gfx_push_2d() {
  int32_t viewport[4];
  glGetIntegerv(GL_VIEWPORT, viewport);
  int32_t half = screen_height / 2;
  float matrix[16];
  projection_ortho(viewport[0], viewport[0] + viewport[2], screen_height - viewport[1],
                   screen_height - (viewport[3] + viewport[1]), half, -half, matrix);
  glPushMatrix();
  glLoadIdentity();
  glMatrixMode(GL_PROJECTION);
  glPushMatrix();
  gfx_load_projection(matrix);
  glDisable(GL_DEPTH_TEST);
  glDepthMask(GL_FALSE);
}

void gfx_pop_2d() {
  glMatrixMode(GL_PROJECTION);
  glPopMatrix();
  glMatrixMode(GL_MODELVIEW);
  glPopMatrix();
  glEnable(GL_DEPTH_TEST);
  glDepthMask(GL_TRUE);
}

void smooth_lines_on(int32_t additive, float width) {
  glEnable(GL_BLEND);
  glBlendFunc(GL_SRC_ALPHA, additive != 0 ? GL_ONE : GL_ONE_MINUS_SRC_ALPHA);
  glHint(GL_LINE_SMOOTH_HINT, GL_NICEST);
  glHint(GL_POINT_SMOOTH_HINT, GL_NICEST);
  glEnable(GL_LINE_SMOOTH);
  glEnable(GL_POINT_SMOOTH);
  glLineWidth(width);
  glPointSize(width);
}

void smooth_lines_off() {
  glDisable(GL_BLEND);
  glDisable(GL_LINE_SMOOTH);
  glDisable(GL_POINT_SMOOTH);
  glLineWidth(1);
  glPointSize(1);
}

double gfx_fov() {
  return std::atan2(half_width_tangent(), 1) * degrees_per_half_angle;
}

double gfx_fov_43() {
  double t = half_width_tangent();
  if (3 * int64_t{screen_width} > 4 * int64_t{screen_height})
    t = screen_height * t / screen_width * 1.3333333333333333;
  return std::atan2(t, 1) * degrees_per_half_angle;
}

void gfx_project(double x, double y, double z, double *out_x, double *out_y,
                 const double *projection, const double *modelview, const int32_t *viewport) {
  const double point[4] = {x, y, z, 1};
  double eye[4];
  double clip[4];
  transform(modelview, point, eye);
  transform(projection, eye, clip);
  *out_x = (clip[0] / clip[3] + 1) * 0.5 * viewport[2] + viewport[0];
  *out_y = viewport[3] * (0.5 - 0.5 * clip[1] / clip[3]) + viewport[1];
}

double gfx_units_per_pixel() {
  double projection[16];
  double modelview[16];
  int32_t viewport[4];
  glGetDoublev(GL_PROJECTION_MATRIX, projection);
  glGetDoublev(GL_MODELVIEW_MATRIX, modelview);
  glGetIntegerv(GL_VIEWPORT, viewport);
  double x_column[4];
  double y_column[4];
  transform(projection, modelview, x_column);
  transform(projection, modelview + 4, y_column);
  double half_width = 0.5 * viewport[2];
  double half_height = 0.5 * viewport[3];
  double a = x_column[0] * half_width;
  double b = y_column[0] * half_width;
  double c = x_column[1] * half_height;
  double d = y_column[1] * half_height;
  return 1 / std::sqrt(std::abs(a * d - b * c));
}
