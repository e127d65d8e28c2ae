#include "gfx/anaglyph.h"

#include "gfx/gl_procs.h"

bool anaglyph_dubois;

namespace {

// From the colours of the eye behind one glass to what is shown of it, row by row.
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

// The sum is clamped after both eyes are added, since either can be negative.
const char *const fragment_text = R"(#version 120
uniform sampler2D first,second;
uniform mat4 first_matrix,second_matrix;
void main()
{
  vec2 at=gl_TexCoord[0].xy;
  vec4 c=first_matrix*texture2D(first,at)+second_matrix*texture2D(second,at);
  gl_FragColor=vec4(c.rgb,1.0);
}
)";

GLuint program;
bool built;

const GlassMatrix *find_matrix(uint32_t colour, uint32_t other_colour) {
  for (const GlassMatrix &matrix : matrices)
    if (matrix.colour == colour && matrix.other_colour == other_colour) return &matrix;
  return nullptr;
}

// 0 if it fails.
GLuint build_program() {
  gl_procs_load();
  if (gl.create_shader == nullptr) return 0;
  const GLuint shader = gl.create_shader(GL_FRAGMENT_SHADER);
  gl.shader_source(shader, 1, &fragment_text, nullptr);
  gl.compile_shader(shader);
  const GLuint name = gl.create_program();
  gl.attach_shader(name, shader);
  gl.link_program(name);
  GLint linked = 0;
  gl.get_program_iv(name, GL_LINK_STATUS, &linked);
  return linked != 0 ? name : 0;
}

void set_matrix(const char *name, const GlassMatrix &matrix) {
  gl.uniform_matrix_4fv(gl.get_uniform_location(program, name), 1, GL_TRUE, matrix.rows);
}

} // namespace

bool anaglyph_begin(uint32_t first_colour, uint32_t second_colour, uint32_t second_texture) {
  const GlassMatrix *first = find_matrix(first_colour, second_colour);
  const GlassMatrix *second = find_matrix(second_colour, first_colour);
  if (!anaglyph_dubois || first == nullptr || second == nullptr) return false;
  if (!built) program = build_program();
  built = true;
  if (program == 0) return false;
  gl.use_program(program);
  set_matrix("first_matrix", *first);
  set_matrix("second_matrix", *second);
  gl.uniform_1i(gl.get_uniform_location(program, "first"), 0);
  gl.uniform_1i(gl.get_uniform_location(program, "second"), 1);
  gl.active_texture(GL_TEXTURE1);
  glBindTexture(GL_TEXTURE_2D, second_texture);
  gl.active_texture(GL_TEXTURE0);
  return true;
}

void anaglyph_end() {
  gl.use_program(0);
}
