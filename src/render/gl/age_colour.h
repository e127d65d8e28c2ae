#pragma once

#include <cstdint>

// The colour, 0xRRGGBB, that is added to an edge or node of that age in seconds: a fresh trail is
// white, runs with each decade through magenta, red, yellow, green, cyan and blue to a dim grey,
// and only the grey of 17 is left after 10^7 seconds. The same as the shaders' agecolour, in
// bytes. An age below 0.01, negative ones too, gives the brightest colour.
uint32_t agecolour_rgb(double age);
