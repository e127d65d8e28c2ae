#pragma once

#include <cstdint>

// Textures with all their mip levels. Pixels are bytes in rows that are padded to a multiple of 4
// bytes. 1 to 4 components are luminance, luminance and alpha, RGB and RGBA.

// If not 0, the internal format of a texture is its number of components (the old form); otherwise
// it is the pixel format.
extern int32_t textures_keep_component_count;

// Uploads level 0 and all mip levels into the bound texture. Overwrites `pixels`.
void texture_upload(uint32_t target, int32_t components, int32_t width, int32_t height,
                    void *pixels);

// Replaces one mip level of the bound texture.
void texture_upload_level(uint32_t target, int32_t level, int32_t components, int32_t width,
                          int32_t height, const void *pixels);

// Uploads levels 1 and up in `format`, each half the size of the one before, down to 1 by 1. Each
// is a box filter of the one before, computed in place. An odd size drops its last column or row.
void texture_build_mipmaps(uint32_t target, int32_t components, uint32_t format, int32_t width,
                           int32_t height, void *pixels);

// Fills the mip levels of the bound texture from its level 0: by the driver if it can, otherwise
// from a read-back of GL_TEXTURE_2D.
void texture_generate_mipmaps(uint32_t target);

// Copies a rectangle of the framebuffer to a new 2D texture, which is left bound and which the
// caller deletes. x and y count from the top left, in pixels.
uint32_t texture_capture(int32_t x, int32_t y, int32_t width, int32_t height, int32_t with_alpha);

// Sets the bound 2D texture to the maximum anisotropy, unless the driver has none or is a software
// renderer.
void texture_max_anisotropy();
