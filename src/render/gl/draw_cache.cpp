#include "render/gl/draw_cache.h"

#include <algorithm>
#include <cassert>
#include <cstring>
#include <utility>

#include "gfx/window.h"
#include "maze/attachment.h"
#include "maze/attachment_names.h"
#include "maze/pos.h"
#include "render/gl/draw_cache_records.h"
#include "render/gl/draw_cache_renewal.h"
#include "support/strings.h"

namespace {

// Caches whose attachment was dropped, newest first, kept for their display lists. Not kept as
// attachments, since the statistics overlay lists those.
DrawCache *retired;

constexpr int32_t max_retired = 2; // per batch: a step drops the caches of two mazes at most

GLsizei list_count(const DrawCache *cache) {
  return static_cast<GLsizei>(cache->chunks.count) * cache->batch->passes;
}

GLuint list_name(const DrawCache *cache, uint32_t chunk, int32_t pass) {
  return cache->first_list + static_cast<GLuint>(cache->batch->passes) * chunk +
         static_cast<GLuint>(pass);
}

// The context may have ended before the maze is destroyed, and its display lists with it.
void release(DrawCache *cache) {
  if (cache->first_list != 0 && gfx_context_alive())
    glDeleteLists(cache->first_list, list_count(cache));
  for (GrowList &stream : cache->streams)
    GrowList_free(&stream);
  GrowList_free(&cache->colours);
  GrowList_free(&cache->chunks);
  GrowList_free(&cache->children);
  delete cache;
}

DrawCache *unlink_retired(DrawCache **link) {
  return std::exchange(*link, (*link)->next_retired);
}

void retire(DrawCache *cache) {
  cache->next_retired = std::exchange(retired, cache);
  int32_t count = 0;
  for (DrawCache **link = &retired; *link != nullptr;) {
    if (ascii_equal_nocase((*link)->batch->name, cache->batch->name) && ++count > max_retired)
      release(unlink_retired(link));
    else
      link = &(*link)->next_retired;
  }
}

// Records of destroyed mazes stay valid and empty, and are never reused.
void release_retired_of_destroyed() {
  for (DrawCache **link = &retired; *link != nullptr;) {
    if (maze_count((*link)->maze) == 0)
      release(unlink_retired(link));
    else
      link = &(*link)->next_retired;
  }
}

DrawCache *take_retired(const Maze *maze, const PlotBatch &batch) {
  for (DrawCache **link = &retired; *link != nullptr; link = &(*link)->next_retired)
    if ((*link)->maze == maze && ascii_equal_nocase((*link)->batch->name, batch.name))
      return unlink_retired(link);
  return nullptr;
}

// Unlinks a cache from its parent and children, and marks all ancestors incomplete.
void disconnect(DrawCache *cache) {
  for (uint32_t i = 0; i < cache->children.count; i++) {
    DrawCache *child = rows<Child>(cache->children)[i].cache;
    if (child != nullptr) child->parent = nullptr;
  }
  if (cache->parent == nullptr) return;
  rows<Child>(cache->parent->children)[cache->child_index].cache = nullptr;
  for (DrawCache *at = cache->parent; at != nullptr && at->complete; at = at->parent)
    at->complete = false;
}

// A maze that is being destroyed has no nodes any more.
void destroy(intptr_t data, Maze *maze) {
  auto *cache = reinterpret_cast<DrawCache *>(data);
  disconnect(cache);
  if (cache->first_list != 0 && maze_count(maze) > 0) return retire(cache);
  release(cache);
  if (maze_count(maze) == 0) release_retired_of_destroyed();
}

Chunk &chunk_of(DrawCache *cache, int32_t node) {
  Chunk *chunks = rows<Chunk>(cache->chunks);
  return *std::partition_point(chunks, chunks + cache->chunks.count,
                               [node](const Chunk &chunk) { return node < chunk.nodes.first; });
}

void touch(intptr_t data, int32_t node) {
  auto *cache = reinterpret_cast<DrawCache *>(data);
  chunk_of(cache, node).stale = true;
}

// Collects the primitives of a chunk, from deferred colours if `colours` is not null.
void collect(DrawCache *cache, Chunk *chunk, const uint32_t *colours, const World *world) {
  chunk->bounds.box = box_empty;
  for (int32_t k = 0; k < max_streams; k++)
    chunk->primitive_begin[k] = cache->streams[k].count;
  cache->batch->collect({cache->maze, chunk->nodes, cache->all_levels, world, colours},
                        cache->streams, &chunk->bounds.box);
  for (int32_t k = 0; k < max_streams; k++)
    chunk->primitive_end[k] = cache->streams[k].count;
  chunk->deferred = false;
}

void collect_deferred(DrawCache *cache, Chunk *chunk) {
  if (!chunk->deferred) return;
  collect(cache, chunk, rows<uint32_t>(cache->colours) + chunk->first_colour, nullptr);
}

void compute_deferred(intptr_t data, int32_t node) {
  auto *cache = reinterpret_cast<DrawCache *>(data);
  collect_deferred(cache, &chunk_of(cache, node));
}

DrawCache *find(const Maze *maze, const char *attachment) {
  return reinterpret_cast<DrawCache *>(Attachment_find(maze, attachment));
}

DrawCache *new_cache(Maze *maze, const PlotBatch &batch, bool all_levels) {
  auto *cache = new DrawCache{};
  cache->batch = &batch;
  cache->maze = maze;
  cache->all_levels = all_levels;
  cache->halfwidth = maze->halfwidth;
  init_streams(cache->streams, batch);
  for (int32_t k = 0; k < batch.passes && batch.defer == nullptr; k++)
    GrowList_reserve(&cache->streams[k], maze->nodes.count);
  GrowList_init(&cache->colours, sizeof(uint32_t));
  if (batch.defer != nullptr)
    GrowList_reserve(&cache->colours, maze->nodes.count * batch.colours_per_node);
  GrowList_init(&cache->chunks, sizeof(Chunk));
  GrowList_init(&cache->children, sizeof(Child));
  return cache;
}

// Appends the children, and grows the bounds of the nodes.
void scan_nodes(DrawCache *cache, NodeRange range) {
  const MazeNode *nodes = maze_nodes(cache->maze);
  Box box = cache->own_nodes;
  for (int32_t i = range.end - 1; i >= range.first; i--) {
    const Child child = {nodes[i].submaze, nullptr, {}};
    if (child.maze != nullptr) {
      GrowList_append(&cache->children, &child);
    } else {
      box.low = min_components(box.low, node_position(nodes[i]));
      box.high = max_components(box.high, node_position(nodes[i]));
    }
  }
  cache->own_nodes = box;
}

void defer(DrawCache *cache, Chunk *chunk, const World *world) {
  chunk->first_colour = cache->colours.count;
  cache->batch->defer({cache->maze, chunk->nodes, cache->all_levels, world}, &cache->colours,
                      &chunk->bounds.box);
  chunk->deferred = true;
}

// The first node of a chunk that ends before `end`. A chunk is up to a quarter longer or three
// quarters shorter if the next node is far away, as after a row of a wide plane: the bounds of
// nodes at both ends of the plane would be visible from almost everywhere.
int32_t chunk_first(const Maze *maze, int32_t end, int32_t usual_nodes) {
  if (end <= usual_nodes) return 0;
  const MazeNode *nodes = maze_nodes(maze);
  const int32_t low = std::max(end - usual_nodes - usual_nodes / 4, 0);
  Box box = box_empty;
  for (int32_t i = end - 1; i > low; i--) {
    const Vec3 place = node_position(nodes[i]), jump = node_position(nodes[i - 1]) - place;
    box_add(&box, place);
    const Vec3 extent = box.high - box.low;
    if (end - i >= usual_nodes / 4 && dot(jump, jump) > 4.0 * dot(extent, extent)) return i;
  }
  return end - usual_nodes;
}

// Scans a chunk's nodes right after they were collected, while they are in the processor's cache.
void make_chunks(DrawCache *cache, bool may_defer, const World *world) {
  cache->own_nodes = box_empty;
  NodeRange nodes = {0, maze_count(cache->maze)};
  if (nodes.end > 0)
    cache->own_nodes.low = cache->own_nodes.high = node_position(maze_nodes(cache->maze)[0]);
  for (; nodes.end > 0; nodes.end = nodes.first) {
    nodes.first = chunk_first(cache->maze, nodes.end, cache->batch->chunk_nodes);
    Chunk chunk = {};
    chunk.nodes = nodes;
    chunk.bounds = {box_empty, cache->halfwidth};
    if (may_defer && cache->batch->defer != nullptr)
      defer(cache, &chunk, world);
    else
      collect(cache, &chunk, nullptr, world);
    append_row(&cache->chunks, chunk);
    scan_nodes(cache, nodes);
  }
}

// Compares the first `compared` bytes of rows.
bool is_same_start(const GrowList &a, uint32_t begin_a, const GrowList &b, uint32_t begin_b,
                   uint32_t count, size_t compared) {
  if (compared == a.elemsize) return GrowList_same_rows(&a, begin_a, &b, begin_b, count);
  const auto *row_a = static_cast<const uint8_t *>(a.data) + size_t{begin_a} * a.elemsize;
  const auto *row_b = static_cast<const uint8_t *>(b.data) + size_t{begin_b} * b.elemsize;
  for (uint32_t i = 0; i < count; i++, row_a += a.elemsize, row_b += b.elemsize)
    if (std::memcmp(row_a, row_b, compared) != 0) return false;
  return true;
}

// Whether the primitives of a chunk are the same, but for their renewable bytes unless `whole`.
bool is_same_chunk(const DrawCache *a, const DrawCache *b, uint32_t chunk, bool whole) {
  for (int32_t k = 0; k < a->batch->passes; k++) {
    const PrimitiveStream &stream = a->batch->streams[k];
    const uint32_t begin_a = primitive_begin(a, chunk, k), begin_b = primitive_begin(b, chunk, k);
    const uint32_t count = rows<Chunk>(a->chunks)[chunk].primitive_end[k] - begin_a;
    if (count != rows<Chunk>(b->chunks)[chunk].primitive_end[k] - begin_b ||
        !is_same_start(a->streams[k], begin_a, b->streams[k], begin_b, count,
                       stream.size - (whole ? 0 : stream.renewable_bytes)))
      return false;
  }
  return true;
}

// Reuses the display lists of the previous version; a chunk whose primitives are unchanged stays
// compiled. So does a stale one of which only renewable bytes changed, to be renewed in its turn.
void reuse_display_lists(DrawCache *cache, DrawCache *old) {
  if (cache->batch != old->batch || cache->chunks.count != old->chunks.count ||
      cache->halfwidth != old->halfwidth)
    return;
  for (uint32_t k = 0; k < cache->chunks.count; k++) {
    Chunk &chunk = rows<Chunk>(cache->chunks)[k];
    const Chunk &before = rows<Chunk>(old->chunks)[k];
    if (before.compiled) collect_deferred(cache, &chunk);
    chunk.round = before.round;
    chunk.stale = before.compiled && before.stale && is_same_chunk(cache, old, k, false);
    chunk.compiled = chunk.stale || (before.compiled && is_same_chunk(cache, old, k, true));
  }
  std::swap(cache->first_list, old->first_list);
}

// The cache of one maze, without those below it.
DrawCache *find_or_build(Maze *maze, const PlotBatch &batch, bool all_levels, const World *world) {
  if (DrawCache *found = find(maze, batch.name)) return found;
  DrawCache *cache = new_cache(maze, batch, all_levels);
  make_chunks(cache, true, world);
  if (DrawCache *old = take_retired(maze, batch)) {
    reuse_display_lists(cache, old);
    release(old);
  }
  Attachment_add(maze, batch.name, reinterpret_cast<intptr_t>(cache), destroy,
                 batch.renews_touched ? touch : nullptr, compute_deferred);
  return cache;
}

void unite(Bounds *bounds, const Bounds &other) {
  box_unite(&bounds->box, other.box);
  bounds->max_halfwidth = std::max(bounds->max_halfwidth, other.max_halfwidth);
}

// The subtree's bounds before the children are added.
void start_bounds(DrawCache *cache) {
  cache->subtree = {box_empty, 0};
  for (uint32_t k = 0; k < cache->chunks.count; k++)
    unite(&cache->subtree, rows<Chunk>(cache->chunks)[k].bounds);
  cache->subtree_nodes = cache->own_nodes;
}

void add_child_bounds(DrawCache *cache, uint32_t i) {
  Child &child = rows<Child>(cache->children)[i];
  child.bounds = child.cache->subtree;
  unite(&cache->subtree, child.bounds);
  box_unite(&cache->subtree_nodes, child.cache->subtree_nodes);
}

DrawCache *child_cache(DrawCache *cache, uint32_t i, const World *world) {
  Child &child = rows<Child>(cache->children)[i];
  if (child.cache != nullptr) return child.cache;
  child.cache = find_or_build(child.maze, *cache->batch, true, world);
  assert(child.cache->parent == nullptr);
  child.cache->parent = cache;
  child.cache->child_index = i;
  return child.cache;
}

// Visits only what is incomplete.
DrawCache *build_tree(Maze *maze, const PlotBatch &batch, const World *world) {
  DrawCache *root = find_or_build(maze, batch, true, world);
  DrawCache *cache = root;
  if (!cache->complete) start_bounds(cache);
  for (uint32_t i = 0; !root->complete;) {
    if (i == cache->children.count) {
      cache->complete = true;
      if (cache == root) break;
      i = cache->child_index;
      cache = cache->parent;
    } else if (DrawCache *child = child_cache(cache, i, world); child->complete) {
      add_child_bounds(cache, i++);
    } else {
      cache = child;
      i = 0;
      start_bounds(cache);
    }
  }
  return root;
}

void compile_chunk(DrawCache *cache, uint32_t k) {
  Chunk &chunk = rows<Chunk>(cache->chunks)[k];
  if (chunk.compiled) return;
  const PlotBatch &batch = *cache->batch;
  if (cache->first_list == 0) cache->first_list = glGenLists(list_count(cache));
  for (int32_t pass = 0; pass < batch.passes; pass++) {
    const PrimitiveStream &stream = batch.streams[pass];
    glNewList(list_name(cache, k, pass), GL_COMPILE);
    if (batch.before != nullptr) batch.before();
    glBegin(stream.mode);
    stream.draw(cache->streams[pass], primitive_begin(cache, k, pass), chunk.primitive_end[pass],
                cache->halfwidth);
    glEnd();
    if (batch.after != nullptr) batch.after();
    glEndList();
  }
  chunk.compiled = true;
}

// What culling needs while one tree is drawn.
struct CullState {
  const PlotBatch *batch;
  const View *view;
  double root_halfwidth;
};

bool is_visible(const CullState &cull, const Bounds &bounds) {
  double margin = 0;
  if (cull.batch->margin != nullptr)
    margin = cull.batch->margin(bounds.box, std::max(bounds.max_halfwidth, cull.root_halfwidth),
                                cull.view->camera);
  return !frustum_culls(cull.view->frustum, bounds.box, margin, cull.batch->cull_planes);
}

// The bounds are exact only after the primitives were collected.
bool collect_visible(const CullState &cull, DrawCache *cache, Chunk *chunk) {
  if (!is_visible(cull, chunk->bounds)) return false;
  if (!chunk->deferred) return true;
  collect_deferred(cache, chunk);
  return is_visible(cull, chunk->bounds);
}

void call_chunks(const CullState &cull, DrawCache *cache, int32_t pass) {
  for (uint32_t k = 0; k < cache->chunks.count; k++) {
    if (!collect_visible(cull, cache, &rows<Chunk>(cache->chunks)[k])) continue;
    const bool renews = renewal_begin(cache, k, cull.view->world);
    compile_chunk(cache, k);
    if (renews) renewal_end(cache, k);
    glCallList(list_name(cache, k, pass));
  }
}

void call_passes(const CullState &cull, DrawCache *cache, int32_t pass) {
  if (pass != every_pass) return call_chunks(cull, cache, pass);
  for (int32_t each = 0; each < cull.batch->passes; each++)
    call_chunks(cull, cache, each);
}

// Sets `has_user` on the user's cache and its ancestors.
void set_has_user(const CullState &cull, bool has_user) {
  if (cull.batch->marker == nullptr) return;
  for (DrawCache *cache = find(cull.view->world->cur.maze, cull.batch->name); cache != nullptr;
       cache = cache->parent)
    cache->has_user = has_user;
}

bool is_called(const CullState &cull, const DrawCache *cache, const Bounds &bounds) {
  return is_visible(cull, bounds) || (cull.batch->marker != nullptr && cache->has_user);
}

void call_maze(const CullState &cull, DrawCache *cache, int32_t pass) {
  call_passes(cull, cache, pass);
  if (cull.batch->marker != nullptr && cull.view->world->cur.maze == cache->maze)
    cull.batch->marker(*cull.view);
}

void call_tree(const CullState &cull, DrawCache *root, int32_t pass) {
  if (!is_called(cull, root, root->subtree)) return;
  call_maze(cull, root, pass);
  DrawCache *cache = root;
  for (uint32_t i = 0; cache != root || i < root->children.count;) {
    if (i == cache->children.count) {
      i = cache->child_index + 1;
      cache = cache->parent;
      continue;
    }
    const Child &child = rows<Child>(cache->children)[i++];
    if (!is_called(cull, child.cache, child.bounds)) continue;
    call_maze(cull, child.cache, pass);
    cache = child.cache;
    i = 0;
  }
}

// Where a chunk's edges lead now. Unlike the cached bounds, these follow ends in other mazes.
Box current_bounds(const DrawCache *cache, uint32_t k) {
  const Chunk &chunk = rows<Chunk>(cache->chunks)[k];
  const int32_t stream = cache->batch->end_stream;
  Box box = chunk.bounds.box;
  assert(stream >= 0);
  for (uint32_t i = primitive_begin(cache, k, stream); i < chunk.primitive_end[stream]; i++) {
    const Pos end = rows<Pos>(cache->streams[stream])[i];
    if (end.node < maze_count(end.maze)) box_add(&box, Pos_position(end));
  }
  return box;
}

} // namespace

void draw_cache_begin_frame() {
  renewal_begin_frame();
}

void draw_cache_draw(Maze *root, const PlotBatch &batch, int32_t pass, bool all_levels,
                     const View &view) {
  const CullState cull = {&batch, &view, root->halfwidth};
  if (!all_levels) return call_passes(cull, find_or_build(root, batch, false, view.world), pass);
  DrawCache *cache = build_tree(root, batch, view.world);
  set_has_user(cull, true);
  call_tree(cull, cache, pass);
  set_has_user(cull, false);
}

void draw_cache_draw_immediate(Maze *maze, const PlotBatch &batch, int32_t pass, bool all_levels,
                               const View *view) {
  DrawCache *cache = new_cache(maze, batch, all_levels);
  make_chunks(cache, false, view != nullptr ? view->world : nullptr);
  for (uint32_t k = 0; k < cache->chunks.count; k++) {
    const Chunk &chunk = rows<Chunk>(cache->chunks)[k];
    if (view != nullptr && !is_visible({&batch, view, view->world->root->halfwidth}, chunk.bounds))
      continue;
    batch.streams[pass].draw(cache->streams[pass], primitive_begin(cache, k, pass),
                             chunk.primitive_end[pass], cache->halfwidth);
  }
  release(cache);
}

void draw_cache_compile(Maze *maze, const PlotBatch &batch, bool all_levels, const World *world) {
  DrawCache *cache = find_or_build(maze, batch, all_levels, world);
  for (uint32_t k = 0; k < cache->chunks.count; k++) {
    collect_deferred(cache, &rows<Chunk>(cache->chunks)[k]);
    compile_chunk(cache, k);
  }
}

const Box *draw_cache_node_bounds(const Maze *maze) {
  const DrawCache *cache = find(maze, attachment_line_lists);
  return cache != nullptr && cache->complete ? &cache->subtree_nodes : nullptr;
}

bool draw_cache_cull(const Maze *maze, const PlotBatch &batch, const Frustum &frustum,
                     double margin, CullResult *result) {
  const DrawCache *cache = find(maze, batch.name);
  if (cache == nullptr || !cache->all_levels) return false;
  for (uint32_t k = 0; k < cache->chunks.count; k++)
    if (!frustum_culls(frustum, current_bounds(cache, k), margin, frustum_planes))
      result->nodes.push_back(rows<Chunk>(cache->chunks)[k].nodes);
  for (uint32_t i = cache->children.count; i-- > 0;)
    result->submazes.push_back(rows<Child>(cache->children)[i].maze);
  return true;
}
