#pragma once

#include "gfx/gl.h"
#include "support/vec3.h"

// Vertices in immediate mode, within glBegin and glEnd.

inline void send_vertex(Vec3 place) {
  glVertex3d(place.x, place.y, place.z);
}

inline void send_vertex(Vec3f place) {
  glVertex3f(place.x, place.y, place.z);
}

inline void send_normal(Vec3f normal) {
  glNormal3f(normal.x, normal.y, normal.z);
}

// A quad that a vertex shader places: corners of -1 and 1, with a place in the world and a radius
// as texture coordinates.
inline void send_shader_quad(Vec3f place, double radius) {
  glTexCoord4f(place.x, place.y, place.z, static_cast<float>(radius));
  glVertex2f(-1, -1);
  glVertex2f(-1, 1);
  glVertex2f(1, 1);
  glVertex2f(1, -1);
}
