#pragma once

#include "text/font.h"

// The two fonts of the program in an offscreen context; "normal" is current.
struct Fonts {
  Font *normal, *fmod;
};

// Builds the fonts if there are none, deletes all other entries and clears the frame.
Fonts fonts_for_test();
