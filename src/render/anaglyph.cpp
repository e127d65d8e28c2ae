#include "render/anaglyph.h"

#include "gfx/gl_procs.h"
#include "render/gl/shader_program.h"
#include "render/shader_text.h"

bool anaglyph_dubois;

namespace {

// The matrix, row by row, from the colour of one eye's picture to its part of the anaglyph.
struct GlassMatrix {
  uint32_t colour, other_colour; // of this glass and of the other one
  float rows[16];
};

constexpr GlassMatrix matrices[] = {
    {0xFF0000,
     0x00FFFF,
     {0.437F, 0.449F, 0.164F, 0,    //
      -0.062F, -0.062F, -0.024F, 0, //
      -0.048F, -0.050F, -0.017F, 0, //
      0, 0, 0, 1}},
    {0x00FFFF,
     0xFF0000,
     {-0.011F, -0.032F, -0.007F, 0, //
      0.377F, 0.761F, 0.009F, 0,    //
      -0.026F, -0.093F, 1.234F, 0,  //
      0, 0, 0, 1}},
    {0x00FF00,
     0xFF00FF,
     {-0.062F, -0.158F, -0.039F, 0, //
      0.284F, 0.668F, 0.143F, 0,    //
      -0.015F, -0.027F, 0.021F, 0,  //
      0, 0, 0, 1}},
    {0xFF00FF,
     0x00FF00,
     {0.529F, 0.705F, 0.024F, 0,    //
      -0.016F, -0.015F, -0.065F, 0, //
      0.009F, 0.075F, 0.937F, 0,    //
      0, 0, 0, 1}},
};

GLuint program;
bool built;

const GlassMatrix *find_matrix(uint32_t colour, uint32_t other_colour) {
  for (const GlassMatrix &matrix : matrices)
    if (matrix.colour == colour && matrix.other_colour == other_colour) return &matrix;
  return nullptr;
}

// 0 if it fails.
GLuint build_program() {
  const GLuint name = fragment_program_build(shader_anaglyph, nullptr, nullptr);
  GLint linked = 0;
  if (name != 0) gl.get_program_iv(name, GL_LINK_STATUS, &linked);
  return linked != 0 ? name : 0;
}

void set_matrix(const char *name, const GlassMatrix &matrix) {
  gl.uniform_matrix_4fv(gl.get_uniform_location(program, name), 1, GL_TRUE, matrix.rows);
}

bool begin(uint32_t first_colour, uint32_t second_colour) {
  const GlassMatrix *first = find_matrix(first_colour, second_colour);
  const GlassMatrix *second = find_matrix(second_colour, first_colour);
  if (!anaglyph_dubois || first == nullptr || second == nullptr) return false;
  if (!built) program = build_program();
  built = true;
  if (program == 0) return false;
  gl.use_program(program);
  set_matrix("first_matrix", *first);
  set_matrix("second_matrix", *second);
  program_set_int(program, "first", 0);
  program_set_int(program, "second", 1);
  return true;
}

void end() {
  gl.use_program(0);
}

} // namespace

const StereoMixer anaglyph_mixer = {begin, end};
