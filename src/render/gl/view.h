#pragma once

#include "render/gl/frustum.h"
#include "world/world.h"

// What one depth slab of one eye shows. The scene makes it current; plots take it with view_of.
struct View {
  const World *world;
  Vec3 camera;          // world->camera, midway between the eyes
  Vec3 followed;        // World_follow_point of this frame
  float projection[16]; // column by column
  Frustum frustum;
};

// The matrices of an eye, column by column.
struct EyeMatrices {
  float projection[16], modelview[16];
};

// Reads the matrices that are loaded in GL.
EyeMatrices eye_matrices_read();

// The View of an eye, after `set_slab` has changed the projection's depth range; null leaves it.
View view_make(const World *world, Vec3 followed, const EyeMatrices &eye,
               void (*set_slab)(float projection[16]));

// Loads the projection into GL and makes this the current View. The modelview must be loaded.
void view_use(const View &view);

// The current View, for functions without a View parameter. `world` must be the one that it shows.
const View &view_current();
const View &view_of(const World *world);

// Multiplies the current GL matrix by the world's view rotation and the translation from its
// camera.
void World_apply_view(const World *world);
