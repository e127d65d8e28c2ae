#pragma once

#include "render/gl/draw_cache_records.h"

// Renewals are spread over frames, so that any number of touched nodes costs a frame little time.

// Resets the budget. Starts a round, unless the last frame left a stale chunk as it was.
void renewal_begin_frame();

// Collects the primitives of a visible chunk again if it is stale and it is its turn. True if it
// did: then compile the chunk's display lists and call renewal_end.
bool renewal_begin(DrawCache *cache, uint32_t k, const World *world);

// Charges the renewal to the budget.
void renewal_end(const DrawCache *cache, uint32_t k);
