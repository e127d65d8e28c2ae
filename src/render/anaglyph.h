#pragma once

#include "gfx/stereo.h"

// Anaglyphs with a matrix for the colours of each eye instead of a mask, which keeps more of the
// colours and lets less of the other eye through. The matrices minimise the perceived error. From
// E. Dubois, "Conversion of a Stereo Pair to Anaglyph with the Least-Squares Projection Method",
// 2009.

// Whether matrices replace the masks where there are any; a setting.
extern bool anaglyph_dubois;

// The program with these matrices, for stereo_set_mixer. It leaves the masks where the setting is
// off, the driver has no shaders, or no matrices are published for the glasses.
extern const StereoMixer anaglyph_mixer;
