#pragma once

#include <cstdint>

// Textures with all their mip levels. Pixels are bytes, rows padded to a multiple of 4 bytes; 1 to
// 4 components are luminance, luminance and alpha, RGB and RGBA.

// When set, a texture's internal format is its number of components (the old form); otherwise the
// pixel format itself.
extern int32_t textures_keep_component_count;

// The pixel format of 1 to 4 components.
uint32_t texture_format(int32_t components);

// Uploads level 0 and all mip levels into the bound texture. `pixels` is overwritten on the way.
void texture_upload(uint32_t target, int32_t components, int32_t width, int32_t height,
                    void *pixels);

// Replaces one mip level of the bound texture.
void texture_upload_level(uint32_t target, int32_t level, int32_t components, int32_t width,
                          int32_t height, const void *pixels);

// Uploads levels 1 and up, each half the size of the one before down to 1 by 1, in `format`. Each
// is averaged in place from the one before. An odd size drops its last column or row.
void texture_build_mipmaps(uint32_t target, int32_t components, uint32_t format, int32_t width,
                           int32_t height, void *pixels);

// Fills the mip levels of the bound texture from its level 0: by the driver where it can, otherwise
// from a read-back of GL_TEXTURE_2D.
void texture_generate_mipmaps(uint32_t target);

// A new 2D texture, left bound, with a rectangle of the framebuffer; x and y count from the top
// left, in pixels. The caller deletes it.
uint32_t texture_capture(int32_t x, int32_t y, int32_t width, int32_t height, int32_t with_alpha);

// Sets the bound 2D texture to the card's greatest anisotropy, if it has any and is a card.
void texture_max_anisotropy();
