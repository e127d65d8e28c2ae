#include "render/gl/draw_cache_renewal.h"

#include <algorithm>

#include "support/clock.h"

namespace {

// Of a frame; less for each Roamer, whose steps take time too. A chunk that takes longer is renewed
// alone.
constexpr double max_seconds = 0.0008, seconds_per_roamer = 4e-8;

constexpr double cost_step = 1.05; // the factor by which one renewal changes the cost
constexpr double min_cost = 1e-8;

// A round lasts until all stale chunks that were visible are renewed.
struct {
  uint32_t round = 1;
  bool unfinished;    // this frame left a stale chunk as it was
  double seconds;     // that this frame's renewals should have taken
  double start;       // of the current renewal, by the clock
  double cost = 1e-6; // seconds per primitive: a running median, since other programs run between
} renewals;

// Grows the bounds of a cache and of its ancestors.
void widen(DrawCache *cache, const Box &box) {
  box_unite(&cache->subtree.box, box);
  for (; cache->parent != nullptr; cache = cache->parent) {
    box_unite(&rows<Child>(cache->parent->children)[cache->child_index].bounds.box, box);
    box_unite(&cache->parent->subtree.box, box);
  }
}

// Copies a chunk's primitives unless their number has changed: they stay as they were until
// whatever changed it drops the attachment.
bool replace_primitives(DrawCache *cache, uint32_t k, const GrowList *streams) {
  const Chunk &chunk = rows<Chunk>(cache->chunks)[k];
  const PrimitiveStream *kinds = cache->batch->streams;
  for (int32_t i = 0; i < max_streams && kinds[i].size > 0; i++)
    if (streams[i].count != chunk.primitive_end[i] - primitive_begin(cache, k, i)) return false;
  for (int32_t i = 0; i < max_streams && kinds[i].size > 0; i++) {
    const size_t size = kinds[i].size, begin = primitive_begin(cache, k, i) * size;
    std::copy_n(static_cast<const uint8_t *>(streams[i].data), streams[i].count * size,
                static_cast<uint8_t *>(cache->streams[i].data) + begin);
  }
  return true;
}

uint32_t drawn_primitives(const DrawCache *cache, uint32_t k) {
  uint32_t count = 0;
  for (int32_t pass = 0; pass < cache->batch->passes; pass++)
    count += rows<Chunk>(cache->chunks)[k].primitive_end[pass] - primitive_begin(cache, k, pass);
  return count;
}

// Collects a chunk's primitives again.
void renew_primitives(DrawCache *cache, uint32_t k, const World *world) {
  Chunk &chunk = rows<Chunk>(cache->chunks)[k];
  GrowList streams[max_streams];
  init_streams(streams, *cache->batch);
  for (int32_t pass = 0; pass < cache->batch->passes; pass++)
    GrowList_reserve(&streams[pass], chunk.primitive_end[pass] - primitive_begin(cache, k, pass));
  Box box = box_empty;
  cache->batch->collect({cache->maze, chunk.nodes, cache->all_levels, world}, streams, &box);
  if (replace_primitives(cache, k, streams)) {
    chunk.bounds.box = box;
    chunk.compiled = false;
    widen(cache, box);
  }
  for (int32_t i = 0; i < max_streams && cache->batch->streams[i].size > 0; i++)
    GrowList_free(&streams[i]);
}

double frame_seconds(const World &world) {
  return max_seconds - seconds_per_roamer * world.roamers.count;
}

double expected_seconds(const DrawCache *cache, uint32_t k) {
  return renewals.cost * drawn_primitives(cache, k);
}

} // namespace

void renewal_begin_frame() {
  if (!renewals.unfinished) renewals.round++;
  renewals.unfinished = false;
  renewals.seconds = 0;
}

bool renewal_begin(DrawCache *cache, uint32_t k, const World *world) {
  Chunk &chunk = rows<Chunk>(cache->chunks)[k];
  if (!chunk.stale || chunk.round == renewals.round) return false;
  if (renewals.seconds > 0 &&
      renewals.seconds + expected_seconds(cache, k) > frame_seconds(*world)) {
    renewals.unfinished = true;
    return false;
  }
  renewals.start = gfx_clock();
  renew_primitives(cache, k, world);
  chunk.round = renewals.round;
  chunk.stale = false;
  return true;
}

void renewal_end(const DrawCache *cache, uint32_t k) {
  const double seconds = gfx_clock() - renewals.start, expected = expected_seconds(cache, k);
  renewals.seconds += expected;
  renewals.cost *= seconds > expected ? cost_step : 1 / cost_step;
  renewals.cost = std::max(renewals.cost, min_cost);
}
