#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

#include "picture.h"
#include "render/age_colour.h"
#include "render/shader_procs.h"
#include "render/shader_program.h"
#include "render/shader_text.h"

namespace {

constexpr const char *plain_fragment = "#version 120\n"
                                       "void main() { gl_FragColor = gl_Color; }\n";

TEST(Shaders, AgesOnTheCardAndOnTheProcessorAgree) {
  picture_begin();
  const char *const vertex[] = {shader_agecolour,
                                "void main() { gl_Position = gl_Vertex; gl_FrontColor = "
                                "vec4(agecolour(gl_MultiTexCoord0.x), 1.0); }\n"};
  char *logs[3] = {};
  const GLuint program = program_build(vertex, 2, &plain_fragment, 1, &logs[0], &logs[1], &logs[2]);
  for (char *log : logs) {
    EXPECT_TRUE(std::string(log).empty() || std::string(log) == "No information log") << log;
    std::free(log);
  }
  // Steps that stay clear of the band edges, where rounding decides.
  const auto age_of = [](int x) { return std::pow(10.0, x * 0.017 + 0.0083) / 100.0; };
  gl2.use_program(program);
  glBegin(GL_LINES);
  for (int x = 0; x < picture_width; x++) {
    const float middle = (static_cast<float>(x) + 0.5F) / (picture_width / 2) - 1.0F;
    glTexCoord1f(static_cast<float>(age_of(x)));
    glVertex2f(middle, -1);
    glVertex2f(middle, 1);
  }
  glEnd();
  gl2.use_program(0);
  const Picture picture = picture_take();
  for (int x = 0; x < picture_width; x++) {
    EXPECT_LE(colour_distance(picture_colour(picture, x, 100), agecolour_rgb(age_of(x))), 3)
        << "age " << age_of(x);
  }
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
