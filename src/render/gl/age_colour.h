#pragma once

#include <cstdint>

// The colour, 0xRRGGBB, that an age in seconds adds to an edge or a node. A fresh trail is white;
// with each tenfold increase of its age it changes through magenta, red, yellow, green, cyan and
// blue to a dim grey, which after 10^7 seconds is 0x111111. Ages below 0.01 give the brightest
// colour. This is agecolour of the shaders, in bytes.
uint32_t agecolour_rgb(double age);
