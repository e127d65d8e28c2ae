#pragma once

#include <cstdint>

// The program's only random numbers: a linear congruential generator with 15 bits per draw, the
// same on every platform.

// Restarts the sequence.
void rand_seed(uint32_t seed);

// The next draw, 0 to 32767.
int32_t rand15();

// Uniform in [0, x), from two draws; the second is the high part.
double rand_real(double x);

// Uniform in 0 to n - 1, from two draws; 0 for n below 1.
int32_t rand_int(int32_t n);
