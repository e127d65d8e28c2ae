#pragma once

#include <cstdint>

// One generator for the whole system, 15 bits a draw and the same on every platform; the
// runtime's own differs in width between platforms.

// Starts the sequence over.
void rand_seed(uint32_t seed);

// The next draw, 0 to 32767.
int32_t rand15();

// Uniform in [0, x), from two draws of which the second is the high part.
double rand_real(double x);

// Uniform in 0 to n - 1, from two draws; 0 for n below 1.
int32_t rand_int(int32_t n);
