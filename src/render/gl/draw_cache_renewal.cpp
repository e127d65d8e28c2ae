#include "render/gl/draw_cache_renewal.h"

#include <algorithm>
#include <cassert>
#include <cstring>

namespace {

constexpr int32_t renewals_per_frame = 350; // primitives; the next frames pay what exceeds it

// A round lasts until all stale chunks that were visible are renewed.
struct {
  uint32_t round = 1;
  int32_t left = renewals_per_frame;
  bool unfinished; // this frame left a stale chunk as it was
} renewals;

// Grows the bounds of a cache and of its ancestors.
void widen(DrawCache *cache, const Box &box) {
  box_unite(&cache->subtree.box, box);
  for (; cache->parent != nullptr; cache = cache->parent) {
    box_unite(&rows<Child>(cache->parent->children)[cache->child_index].bounds.box, box);
    box_unite(&cache->parent->subtree.box, box);
  }
}

// Collects a chunk's primitives again. Their number is the same: whatever changes the count drops
// the attachment.
void renew_primitives(DrawCache *cache, uint32_t k, const World *world) {
  Chunk &chunk = rows<Chunk>(cache->chunks)[k];
  GrowList streams[max_streams];
  init_streams(streams, *cache->batch);
  for (int32_t pass = 0; pass < cache->batch->passes; pass++)
    GrowList_reserve(&streams[pass], chunk.primitive_end[pass] - primitive_begin(cache, k, pass));
  chunk.bounds.box = box_empty;
  cache->batch->collect({cache->maze, chunk.nodes, cache->all_levels, world}, streams,
                        &chunk.bounds.box);
  for (int32_t i = 0; i < max_streams && cache->batch->streams[i].size > 0; i++) {
    const size_t size = cache->batch->streams[i].size;
    const uint32_t begin = primitive_begin(cache, k, i);
    assert(streams[i].count == chunk.primitive_end[i] - begin);
    std::memcpy(static_cast<uint8_t *>(cache->streams[i].data) + begin * size, streams[i].data,
                streams[i].count * size);
    GrowList_free(&streams[i]);
  }
  widen(cache, chunk.bounds.box);
}

uint32_t drawn_primitives(const DrawCache *cache, uint32_t k) {
  uint32_t count = 0;
  for (int32_t pass = 0; pass < cache->batch->passes; pass++)
    count += rows<Chunk>(cache->chunks)[k].primitive_end[pass] - primitive_begin(cache, k, pass);
  return count;
}

} // namespace

void renewal_begin_frame() {
  if (!renewals.unfinished) renewals.round++;
  renewals.left = std::min(renewals.left, 0) + renewals_per_frame;
  renewals.unfinished = false;
}

void renewal_visit(DrawCache *cache, uint32_t k, const World *world) {
  Chunk &chunk = rows<Chunk>(cache->chunks)[k];
  if (!chunk.stale || chunk.round == renewals.round) return;
  if (renewals.left <= 0) {
    renewals.unfinished = true;
    return;
  }
  renew_primitives(cache, k, world);
  renewals.left -= static_cast<int32_t>(drawn_primitives(cache, k));
  chunk.round = renewals.round;
  chunk.stale = chunk.compiled = false;
}
