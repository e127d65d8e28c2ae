#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

#include "picture.h"
#include "render/anaglyph.h"
#include "render/gl/age_colour.h"
#include "render/gl/shader_program.h"
#include "render/gl/shaderprocs.h"
#include "render/shader_text.h"

namespace {

constexpr const char *plain_fragment = "#version 120\n"
                                       "void main() { gl_FragColor = gl_Color; }\n";

// Within each decade and at its end. Computed by hand: at the ends of the decades from 0.01 s on
// the grey is 123, 107, 91, 75, 59, 43, 27 and then 17, plus 0 or 36, or 18 at 1e7 s. The shader is
// tested a little after each end, where rounding can't select another decade.  The light
// grey is 137 up to 0.1 s and 20 less at the end of each decade from there to 1e5 s.
TEST(AgeColour, ShaderAndProcessorAgreeInEachDecade) {
  const struct {
    double age;
    uint32_t colour, light;
  } ages[] = {{-5, 0x9F9F9F, 0x89},      {0, 0x9F9F9F, 0x89},       {0.01, 0x9F9F9F, 0x89},
              {0.032, 0x979797, 0x89},   {0.1, 0x8F8F8F, 0x89},     {0.32, 0x877587, 0x7E},
              {1, 0x7F7F7F, 0x75},       {3.2, 0x775365, 0x6A},     {10, 0x6F4B6F, 0x61},
              {32, 0x675543, 0x56},      {100, 0x5F3B3B, 0x4D},     {320, 0x455733, 0x42},
              {1000, 0x4F4F2B, 0x39},    {3200, 0x234735, 0x2E},    {10000, 0x1B3F1B, 0x25},
              {32000, 0x132537, 0x1A},   {100000, 0x113535, 0x11},  {320000, 0x1A1A2C, 0x11},
              {1e+06, 0x111135, 0x11},   {3.2e+06, 0x1A1A1A, 0x11}, {1e+07, 0x232323, 0x11},
              {3.2e+07, 0x111111, 0x11}, {1e+08, 0x111111, 0x11}};
  picture_begin();
  shader_procs_load();
  for (const bool light : {true, false}) {
    const char *const vertex[] = {light ? shader_agecolour_light : shader_agecolour,
                                  "void main() { gl_Position = gl_Vertex; gl_FrontColor = "
                                  "vec4(agecolour(gl_MultiTexCoord0.x), 1.0); }\n"};
    gl.use_program(program_build(vertex, 2, &plain_fragment, 1, nullptr, nullptr, nullptr));
    age_colour_light = light;
    for (const auto &[age, colour, grey] : ages) {
      EXPECT_EQ(agecolour_rgb(age), light ? grey * 0x010101 : colour) << age;
      glTexCoord1d(age * 1.003);
      glRecti(-1, -1, 1, 1);
      const uint32_t seen = picture_colour(picture_take(), 9, 9);
      EXPECT_LE(colour_distance(seen, agecolour_rgb(age * 1.003)), 3) << age << " in the shader";
    }
  }
  gl.use_program(0);
}

TEST(Shaders, FailuresAreAppendedToTheLogFile) {
  picture_begin();
  const std::string path = testing::TempDir() + "vorel_shader_test.log";
  std::remove(path.c_str());
  const char *const default_log = shader_set_error_log(path.c_str());
  EXPECT_NE(fragment_program_build(plain_fragment, nullptr, nullptr), 0u);
  EXPECT_FALSE(std::ifstream(path).good()) << "a valid program must leave no log";
  char *shader_log = nullptr, *program_log = nullptr;
  const char *const bad = "#version 120\nvoid main() { nonsense; }\n";
  EXPECT_NE(fragment_program_build(bad, &shader_log, &program_log), 0u);
  EXPECT_NE(std::string(shader_log).find("nonsense"), std::string::npos) << shader_log;
  std::stringstream text;
  text << std::ifstream(path).rdbuf();
  EXPECT_EQ(text.str(), std::string(shader_log) + "\n" + program_log + "\n");
  std::free(shader_log);
  std::free(program_log);
  shader_set_error_log(default_log);
}

void draw_a_colour(const void *) {
  static bool second;
  second ? glClearColor(0.2F, 0.9F, 1, 1) : glClearColor(0.8F, 0.3F, 0.1F, 1);
  second = !second;
  glClear(GL_COLOR_BUFFER_BIT);
  glClearColor(0, 0, 0, 0);
}

TEST(Anaglyph, MatricesMixBothEyesWhereTheyArePublished) {
  picture_begin();
  stereo_set_mixer(anaglyph_mixer);
  anaglyph_dubois = true;
  const struct {
    int32_t mode, swap;
    uint32_t mixed;
  } cases[] = {
      {6, 0, 0x76B3FF}, {6, 1, 0xA27001}, {8, 0, 0x71C61E}, {8, 1, 0xA95CFC}, {7, 0, 0xCCE600}};
  for (const auto &[mode, swap, mixed] : cases) {
    stereo_render(draw_a_colour, nullptr, mode, swap, 0, 0);
    const uint32_t seen = picture_colour(picture_take(), 9, picture_height - 9);
    EXPECT_LE(colour_distance(seen, mixed), 1) << mode << std::hex << " 0x" << seen;
  }
  anaglyph_dubois = false;
}

} // namespace
