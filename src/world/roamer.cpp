#include "world/roamer.h"

#include "maze/pos.h"
#include "maze/visit.h"
#include "support/random.h"

namespace {

constexpr int32_t max_draws = 50; // for a way that does not lead straight back

} // namespace

void Roamer_step(Roamer *roamer, World *world, double dt) {
  roamer->timer -= dt;
  if (roamer->timer > 0) return;
  roamer->timer = roamer->period;
  Pos ways[pos_max_edges];
  const int32_t count = Pos_alledges(roamer->cur.maze, roamer->cur.node, ways, nullptr);
  if (count == 0) return;
  Pos next = roamer->prev;
  for (int32_t i = 0; i < max_draws && Pos_equal(next, roamer->prev); i++)
    next = ways[rand_int(count)];
  Pos_mark_roamertime(roamer->cur.maze, roamer->cur.node, next.maze, next.node, world->time);
  roamer->prev = roamer->cur;
  roamer->cur = next;
}

void World_step_roamers(World *world, double dt) {
  for (uint32_t i = world->roamers.count; i-- > 0;)
    Roamer_step(&rows<Roamer>(world->roamers)[i], world, dt);
}
