#include "fonts.h"

#include <cstdlib>

#include "gfx/texture.h"
#include "picture.h"
#include "text/fmod_table.h"
#include "text/normal_font.h"

Fonts fonts_for_test() {
  picture_begin();
  if (fonts.count == 0) {
    textures_keep_component_count = 1;
    font_build(normal_font.data(), normal_font_size, "normal");
    uint32_t size = 0;
    uint8_t *bytes = fmod_generate(&size);
    font_build(bytes, size, "fmod");
    std::free(bytes);
  }
  const Fonts built = {rows<Font *>(fonts)[0], rows<Font *>(fonts)[1]};
  font_select(built.normal);
  while (fonts.count > 2)
    font_delete(rows<Font *>(fonts)[2]);
  return built;
}
