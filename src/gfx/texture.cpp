#include "gfx/texture.h"

#include <cassert>
#include <cstddef>
#include <vector>

#include "gfx/gl.h"
#include "gfx/gl_procs.h"
#include "gfx/gl_util.h"
#include "gfx/screen.h"

int32_t textures_keep_component_count;

namespace {

// What the driver offers.
struct TextureSupport {
  int32_t generate_mipmap = -1, anisotropy = -1; // as gl_has_extension keeps them
  float max_anisotropy = 0;                      // 0 until first read
};
TextureSupport support;

constexpr uint32_t formats[5] = {0, GL_LUMINANCE, GL_LUMINANCE_ALPHA, GL_RGB, GL_RGBA};

// The layout of an image in a buffer.
struct ImageLayout {
  int32_t width, height;
  size_t components;
  size_t row; // bytes from one row to the next
};

ImageLayout layout_of(int32_t width, int32_t height, size_t components) {
  size_t bytes = static_cast<size_t>(width) * components;
  return {width, height, components, (bytes + 3) / 4 * 4};
}

int32_t halved(int32_t size) {
  return size > 1 ? size / 2 : 1;
}

// Halves an image in its buffer by a box filter. Writing never overtakes reading. A side of 1 has
// no neighbour and counts twice.
ImageLayout halve(ImageLayout from, uint8_t *bytes) {
  ImageLayout to = layout_of(halved(from.width), halved(from.height), from.components);
  size_t right = from.width > 1 ? from.components : 0;
  size_t below = from.height > 1 ? from.row : 0;
  for (size_t y = 0; y < static_cast<size_t>(to.height); y++)
    for (size_t x = 0; x < static_cast<size_t>(to.width); x++)
      for (size_t c = 0; c < to.components; c++) {
        const uint8_t *at = bytes + 2 * y * from.row + 2 * x * from.components + c;
        int sum = at[0] + at[right] + at[below] + at[below + right];
        bytes[y * to.row + x * to.components + c] = static_cast<uint8_t>((sum + 2) >> 2);
      }
  return to;
}

// The pixel format of 1 to 4 components.
uint32_t texture_format(int32_t components) {
  assert(components >= 1 && components <= 4);
  return formats[components];
}

int32_t internal_format(int32_t components, uint32_t format) {
  return textures_keep_component_count != 0 ? components : static_cast<int32_t>(format);
}

// Uploads levels 1 and up of the image in `bytes`.
void upload_levels(uint32_t target, int32_t internal, uint32_t format, ImageLayout image,
                   uint8_t *bytes) {
  for (int32_t level = 1; image.width > 1 || image.height > 1; level++) {
    image = halve(image, bytes);
    glGetError();
    glTexImage2D(target, level, internal, image.width, image.height, 0, format, GL_UNSIGNED_BYTE,
                 bytes);
  }
}

// Components to read back for an internal format. Sized formats read as RGB, except GL_RGBA8, which
// texture_capture uses.
int32_t components_of(int32_t format) {
  if (format == GL_RGBA8) return 4;
  if (format >= 1 && format <= 4) return format;
  for (int32_t components = 4; components >= 1; components--)
    if (texture_format(components) == static_cast<uint32_t>(format)) return components;
  return 3;
}

// Tests for the old extension, but calls the later entry point.
bool driver_makes_mipmaps() {
  if (!gl_has_extension(&support.generate_mipmap, "GL_SGIS_generate_mipmap")) return false;
  gl_procs_load();
  return gl.generate_mipmap != nullptr;
}

int32_t level_parameter(uint32_t name) {
  int32_t value = 0;
  glGetTexLevelParameteriv(GL_TEXTURE_2D, 0, name, &value);
  return value;
}

// All levels need the internal format of level 0, or the texture is incomplete.
void mipmaps_from_read_back(uint32_t target) {
  int32_t internal = level_parameter(GL_TEXTURE_INTERNAL_FORMAT);
  int32_t components = components_of(internal);
  uint32_t format = texture_format(components);
  ImageLayout image =
      layout_of(level_parameter(GL_TEXTURE_WIDTH), level_parameter(GL_TEXTURE_HEIGHT),
                static_cast<size_t>(components));
  std::vector<uint8_t> bytes(image.row * static_cast<size_t>(image.height));
  glGetTexImage(GL_TEXTURE_2D, 0, format, GL_UNSIGNED_BYTE, bytes.data());
  upload_levels(target, internal, format, image, bytes.data());
}

} // namespace

void texture_upload_level(uint32_t target, int32_t level, int32_t components, int32_t width,
                          int32_t height, const void *pixels) {
  uint32_t format = texture_format(components);
  glGetError();
  glTexImage2D(target, level, internal_format(components, format), width, height, 0, format,
               GL_UNSIGNED_BYTE, pixels);
}

void texture_upload(uint32_t target, int32_t components, int32_t width, int32_t height,
                    void *pixels) {
  texture_upload_level(target, 0, components, width, height, pixels);
  texture_build_mipmaps(target, components, texture_format(components), width, height, pixels);
}

void texture_build_mipmaps(uint32_t target, int32_t components, uint32_t format, int32_t width,
                           int32_t height, void *pixels) {
  upload_levels(target, internal_format(components, format), format,
                layout_of(width, height, static_cast<size_t>(components)),
                static_cast<uint8_t *>(pixels));
}

void texture_generate_mipmaps(uint32_t target) {
  if (driver_makes_mipmaps())
    gl.generate_mipmap(target);
  else
    mipmaps_from_read_back(target);
}

uint32_t texture_capture(int32_t x, int32_t y, int32_t width, int32_t height, int32_t with_alpha) {
  uint32_t name = 0;
  glGenTextures(1, &name);
  glBindTexture(GL_TEXTURE_2D, name);
  glCopyTexImage2D(GL_TEXTURE_2D, 0, with_alpha != 0 ? GL_RGBA8 : GL_RGB8, x,
                   screen_height - (y + height), width, height, 0);
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR_MIPMAP_LINEAR);
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_REPEAT);
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_REPEAT);
  texture_generate_mipmaps(GL_TEXTURE_2D);
  return name;
}

void texture_max_anisotropy() {
  // Software drivers offer it too, but then take seconds for a frame.
  if (gl_is_software()) return;
  if (!gl_has_extension(&support.anisotropy, "GL_EXT_texture_filter_anisotropic")) return;
  if (support.max_anisotropy == 0)
    glGetFloatv(GL_MAX_TEXTURE_MAX_ANISOTROPY_EXT, &support.max_anisotropy);
  glTexParameterf(GL_TEXTURE_2D, GL_TEXTURE_MAX_ANISOTROPY_EXT, support.max_anisotropy);
}
