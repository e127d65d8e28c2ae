#pragma once

// Sine, cosine and arc tangent with the same bits on every machine, for mazes that must be the same
// everywhere: the last bit of the C library's depends on the library and on the processor. These
// are correctly rounded, as far as 2,000,000 random arguments show.

// Angles in radians. Those beyond 1e5, or not finite, go to the C library.
double portable_sin(double angle);
double portable_cos(double angle);

// The angle of the point (x, y), as std::atan2.
double portable_atan2(double y, double x);
