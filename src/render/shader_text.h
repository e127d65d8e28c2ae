#pragma once

// The GLSL sources. Some programs join a shared text and their own: the first has the line
// "#version 120", and the second uses its functions. The disc texts have no version line, since
// GLSL 1.10, the default version, suffices.

// "vec3 agecolour(float t)": the colour that an age of t seconds adds; see gl/age_colour.h.
extern const char *const shader_agecolour;
extern const char *const shader_agecolour_light; // with age_colour_light

// Follows shader_agecolour in programs of ribbons and discs that show the trails of Roamers.
extern const char *const shader_roamers;

// "vec3 lighting(vec3 nv,vec3 ps)": the light on a surface with unit normal nv at the world
// position ps, from four lights that repeat through all of space and from the user's light.
extern const char *const shader_lighting;

// Ribbons along edges. gl_Vertex: an end and a corner code 0 to 3; gl_Normal: the axis;
// gl_MultiTexCoord0: the time of the last crossing, the half-width and, with shader_roamers, the
// time of a Roamer's last crossing; gl_Color: the colour.
extern const char *const shader_edge_vertex;
extern const char *const shader_edge_fragment;

// Discs on nodes. gl_Vertex: a corner, each -1 or 1; gl_MultiTexCoord0: centre and half-width;
// gl_Color: the colour, and the time of the last arrival as alpha; with shader_roamers,
// gl_Normal.x: the time of a Roamer's last arrival.
extern const char *const shader_node_vertex;
extern const char *const shader_node_fragment;

// Flat discs. gl_Vertex: a corner of a square around the disc; gl_MultiTexCoord0: centre and
// radius; gl_Color: the colour. All positions are in one space.
extern const char *const shader_disc_vertex;
extern const char *const shader_disc_fragment;

// Balls. gl_Vertex: a corner of the quad, each -1 or 1; gl_MultiTexCoord0: centre and radius;
// gl_Color: the colour. The fragment texts follow shader_lighting.
extern const char *const shader_ball_vertex;
extern const char *const shader_ball_fragment;
extern const char *const shader_ball_unlit_fragment;

// Sticks, like balls. gl_MultiTexCoord0: an end and the radius; gl_Normal: from there to the other
// end.
extern const char *const shader_stick_vertex;
extern const char *const shader_stick_fragment;

// Metal walkways. gl_Vertex: a world position; gl_Normal: the normal of the surface;
// gl_MultiTexCoord0: texture coordinates, and the angle of the texture's axis about the normal's
// main axis, in radians; gl_Color: the colour. The fragment text follows shader_lighting.
extern const char *const shader_gantry_vertex;
extern const char *const shader_gantry_fragment;

// Mixes the pictures of two eyes, "first" and "second", by a matrix for the colours of each.
// Follows the vertex stage of the fixed pipeline.
extern const char *const shader_anaglyph;

// One repeat of the texture of the perforated plate: its colour if tn is 0, with holes of alpha 0,
// its normals if tn is 1. Follows the vertex stage of the fixed pipeline.
extern const char *const shader_gantry_texture;
