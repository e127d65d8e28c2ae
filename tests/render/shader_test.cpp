#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

#include "lamps.h"
#include "picture.h"
#include "render/age_colour.h"
#include "render/shader_procs.h"
#include "render/shader_program.h"
#include "render/shader_text.h"

namespace {

// Builds a program, expecting empty logs of all its parts.
GLuint build_clean(const char *shared, const char *vertex, const char *fragment) {
  const char *const strings[] = {shared, vertex};
  char *logs[3] = {};
  const GLuint program = program_build(strings, 2, &fragment, 1, &logs[0], &logs[1], &logs[2]);
  for (char *log : logs) {
    EXPECT_TRUE(std::string(log).empty() || std::string(log) == "No information log") << log;
    std::free(log);
  }
  return program;
}

constexpr const char *plain_fragment = "#version 120\n"
                                       "void main() { gl_FragColor = gl_Color; }\n";

// Fills one column of the picture.
void column(int x) {
  const float left = static_cast<float>(x) / (picture_width / 2) - 1.0F;
  const float right = static_cast<float>(x + 1) / (picture_width / 2) - 1.0F;
  glVertex2f(left, -1);
  glVertex2f(left, 1);
  glVertex2f(right, 1);
  glVertex2f(right, -1);
}

TEST(Shaders, AgesOnTheCardAndOnTheProcessorAgree) {
  picture_begin();
  const GLuint program = build_clean(shader_agecolour,
                                     "void main() { gl_Position = gl_Vertex; gl_FrontColor = "
                                     "vec4(agecolour(gl_MultiTexCoord0.x), 1.0); }\n",
                                     plain_fragment);
  // Steps that stay clear of the band edges, where rounding decides.
  const auto age_of = [](int x) { return std::pow(10.0, x * 0.017 + 0.0083) / 100.0; };
  gl2.use_program(program);
  glBegin(GL_QUADS);
  for (int x = 0; x < picture_width; x++) {
    glTexCoord1f(static_cast<float>(age_of(x)));
    column(x);
  }
  glEnd();
  gl2.use_program(0);
  const Picture picture = picture_take();
  for (int x = 0; x < picture_width; x++) {
    EXPECT_LE(colour_distance(picture_colour(picture, x, 100), agecolour_rgb(age_of(x))), 3)
        << "age " << age_of(x);
  }
}

TEST(Shaders, LightingRepeatsAndFadesAsTold) {
  picture_begin();
  const GLuint program =
      build_clean(shader_lighting,
                  "void main() { gl_Position = gl_Vertex; gl_FrontColor = "
                  "vec4(lighting(gl_Normal, gl_MultiTexCoord0.xyz) * 0.25, 1.0); }\n",
                  plain_fragment);
  const Vec3 user = {4, 5, 6};
  const auto place_of = [](int x) {
    return Vec3{std::sin(x) * 60, std::cos(x * 1.7) * 60, std::sin(x * 0.3) * 30};
  };
  const auto normal_of = [](int x) {
    return Vec3{std::cos(x * 0.9), std::sin(x * 0.9) * 0.6, std::sin(x * 0.9) * 0.8};
  };
  gl2.use_program(program);
  gl2.uniform_3f(gl2.get_uniform_location(program, "lpos0"), 4, 5, 6);
  gl2.uniform_3f(gl2.get_uniform_location(program, "lcol0"), 5, 5, 5);
  glBegin(GL_QUADS);
  for (int x = 0; x < picture_width; x++) {
    const Vec3 place = place_of(x);
    const Vec3 normal = normal_of(x);
    glNormal3d(normal.x, normal.y, normal.z);
    glTexCoord3d(place.x, place.y, place.z);
    column(x);
  }
  glEnd();
  gl2.use_program(0);
  const Picture picture = picture_take();
  for (int x = 0; x < picture_width; x++) {
    const Vec3 light = lamp_light(normal_of(x), place_of(x), user, {5, 5, 5}) * (0.25 * 255);
    const uint32_t colour = picture_colour(picture, x, 100);
    EXPECT_NEAR(colour >> 16, std::min(255.0, light.x), 1.6) << x;
    EXPECT_NEAR(colour >> 8 & 255, std::min(255.0, light.y), 1.6) << x;
    EXPECT_NEAR(colour & 255, std::min(255.0, light.z), 1.6) << x;
  }
}

TEST(Shaders, PlotsCompileWithEmptyLogs) {
  picture_begin();
  build_clean(shader_agecolour, shader_edge_vertex, shader_edge_fragment);
  build_clean(shader_agecolour, shader_node_vertex, shader_node_fragment);
}

TEST(Shaders, FailuresAreAppendedToTheLogFileAndAreNoStop) {
  picture_begin();
  const std::string path = testing::TempDir() + "vorel_shader_test.log";
  std::remove(path.c_str());
  const char *const usual_log = shader_error_log;
  shader_error_log = path.c_str();
  EXPECT_NE(fragment_program_build(plain_fragment, nullptr, nullptr), 0u);
  EXPECT_FALSE(std::ifstream(path).good()) << "a good program must leave no log";
  char *log = nullptr;
  EXPECT_NE(fragment_program_build("#version 120\nvoid main() { nonsense; }\n", &log, nullptr), 0u);
  EXPECT_NE(std::string(log).find("nonsense"), std::string::npos) << log;
  std::stringstream text;
  text << std::ifstream(path).rdbuf();
  EXPECT_EQ(text.str().rfind(std::string(log) + "\n", 0), 0u) << "the shader's log comes first";
  EXPECT_GT(text.str().size(), std::string(log).size() + 1) << "the link fails, too";
  std::free(log);
  std::remove(path.c_str());
  shader_error_log = usual_log;
}

} // namespace
