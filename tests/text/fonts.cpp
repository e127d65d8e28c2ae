#include "fonts.h"

#include "gfx/texture.h"
#include "picture.h"
#include "text/built_in_fonts.h"

Fonts fonts_for_test() {
  picture_begin();
  if (fonts.count == 0) {
    textures_keep_component_count = 1;
    font_build_normal();
    font_build_fmod();
  }
  const Fonts built = {rows<Font *>(fonts)[0], rows<Font *>(fonts)[1]};
  font_select(built.normal);
  while (fonts.count > 2)
    font_delete(rows<Font *>(fonts)[2]);
  return built;
}
