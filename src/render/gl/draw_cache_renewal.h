#pragma once

#include "render/gl/draw_cache_records.h"

// Renewals are spread over frames, so that any number of touched nodes costs a frame little time.

// Resets the budget. Starts a round, unless the last frame left a stale chunk as it was.
void renewal_begin_frame();

// Collects the primitives of a visible chunk again if it is stale and it is its turn. Its display
// lists must then be compiled.
void renewal_visit(DrawCache *cache, uint32_t k, const World *world);
