#pragma once

// The GLSL sources. A program joins a shared text and its own; the first text holds the line
// "#version 120", and the second uses its functions. The disc texts have no version line: they use
// nothing beyond GLSL 1.10, the default version.

// "vec3 agecolour(float t)": the colour that an age of t seconds adds; see render/age_colour.h.
extern const char *const shader_agecolour;

// "vec3 lighting(vec3 nv,vec3 ps)": the light on a surface with unit normal nv at world place ps,
// by four lights that repeat through all of space and by the user's own.
extern const char *const shader_lighting;

// Ribbons along edges. gl_Vertex: an end and a corner code 0 to 3; gl_Normal: the axis;
// gl_MultiTexCoord0: the time of the last crossing and the half-width; gl_Color: the colour.
extern const char *const shader_edge_vertex;
extern const char *const shader_edge_fragment;

// Discs on nodes. gl_Vertex: a corner, each -1 or 1; gl_MultiTexCoord0: centre and half-width;
// gl_Color: the colour, and the time of the last arrival as alpha.
extern const char *const shader_node_vertex;
extern const char *const shader_node_fragment;

// Flat discs. gl_Vertex: a corner of a square around it; gl_MultiTexCoord0: centre and radius;
// gl_Color: the colour. Corners and centre are in one space.
extern const char *const shader_disc_vertex;
extern const char *const shader_disc_fragment;

// Balls. gl_Vertex: a corner of the quad, each -1 or 1; gl_MultiTexCoord0: centre and radius;
// gl_Color: the colour. The fragment texts stand behind shader_lighting.
extern const char *const shader_ball_vertex;
extern const char *const shader_ball_fragment;
extern const char *const shader_ball_unlit_fragment;

// Sticks, as balls; gl_MultiTexCoord0: an end and the radius; gl_Normal: from there to the other.
extern const char *const shader_stick_vertex;
extern const char *const shader_stick_fragment;

// Metal walkways. gl_Vertex: a world place; gl_Normal: the surface's; gl_MultiTexCoord0: texture
// coordinates, and the angle of the texture's axis about the normal's main axis, in radians;
// gl_Color: the colour. The fragment text stands behind the lighting's.
extern const char *const shader_gantry_vertex;
extern const char *const shader_gantry_fragment;

// The perforated plate over one repeat of its texture: with tn 0 its colour, of which holes have no
// alpha, with tn 1 its normals. Alone, behind the fixed pipeline's vertices.
extern const char *const shader_gantry_texture;
