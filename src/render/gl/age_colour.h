#pragma once

#include <cstdint>

// Whether ages show by brightness instead of hue, for colour-blind users; a setting.
extern bool age_colour_light;

// The colour, 0xRRGGBB, that an age in seconds adds to an edge or a node. A fresh trail is white;
// with each tenfold increase of its age it changes through magenta, red, yellow, green, cyan and
// blue to a dim grey, which after 10^7 seconds is 0x111111. Ages below 0.01 give the brightest
// colour. With age_colour_light it is a grey from 137 up to 0.1 seconds to 17 from 10^5 seconds on,
// 20 less with each tenfold increase. This is agecolour of the shaders, in bytes.
uint32_t agecolour_rgb(double age);
