#pragma once

#include "text/font.h"

// The program's two fonts in a context without a display, "normal" current.
struct Fonts {
  Font *normal, *fmod;
};

// Builds them if there are no fonts, deletes all other entries and clears the frame.
Fonts fonts_for_test();
