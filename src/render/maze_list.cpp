#include "render/maze_list.h"

#include <algorithm>
#include <cassert>
#include <iterator>
#include <utility>

#include "gfx/window.h"
#include "maze/attachment.h"
#include "support/strings.h"

namespace {

// Lists whose attachment was dropped by a step, to be taken up again when it is made anew. They are
// no attachment of their own, which a person would be shown. A step drops those of five names from
// two mazes at most; those that nobody comes back for go when their place is needed.
MazeList *parked[10];

GLsizei name_count(const MazeList *list) {
  return static_cast<GLsizei>(list->chunks.count) * list->kind->passes;
}

GLuint list_name(const MazeList *list, uint32_t chunk, int32_t pass) {
  return list->first_name + static_cast<GLuint>(list->kind->passes) * chunk +
         static_cast<GLuint>(pass);
}

// The context may be gone by the time a maze is destroyed, and its lists with it.
void release(MazeList *list) {
  if (list->first_name != 0 && gfx_context_alive())
    glDeleteLists(list->first_name, name_count(list));
  for (GrowList &part : list->parts)
    GrowList_free(&part);
  GrowList_free(&list->chunks);
  GrowList_free(&list->below);
  delete list;
}

// Takes a free place, or that of the list that is there for the longest time.
void park(MazeList *list) {
  for (MazeList *&place : parked) {
    if (place != nullptr) continue;
    place = list;
    return;
  }
  release(parked[0]);
  std::move(std::begin(parked) + 1, std::end(parked), std::begin(parked));
  parked[std::size(parked) - 1] = list;
}

// The record of a destroyed maze stays, empty, and never becomes another's.
void release_parked_of_destroyed() {
  for (MazeList *&place : parked) {
    if (place == nullptr || maze_count(place->maze) > 0) continue;
    release(place);
    place = nullptr;
  }
}

MazeList *take_parked(const Maze *maze, const MazeListKind &kind) {
  for (MazeList *&place : parked) {
    if (place != nullptr && place->maze == maze && ascii_equal_nocase(place->kind->name, kind.name))
      return std::exchange(place, nullptr);
  }
  return nullptr;
}

// Takes a list out of the tree of lists, which isn't complete any more from there up.
void disconnect(MazeList *list) {
  for (uint32_t i = 0; i < list->below.count; i++) {
    MazeList *below = rows<MazeBelow>(list->below)[i].list;
    if (below != nullptr) below->above = nullptr;
  }
  if (list->above == nullptr) return;
  rows<MazeBelow>(list->above->below)[list->place].list = nullptr;
  for (MazeList *above = list->above; above != nullptr && above->complete; above = above->above)
    above->complete = false;
}

// A maze that is being destroyed has no nodes any more.
void list_destroy(intptr_t data, Maze *maze) {
  auto *list = reinterpret_cast<MazeList *>(data);
  disconnect(list);
  if (list->first_name != 0 && maze_count(maze) > 0) return park(list);
  release(list);
  if (maze_count(maze) == 0) release_parked_of_destroyed();
}

MazeList *list_new(Maze *maze, const MazeListKind &kind, int32_t all_levels) {
  auto *list = new MazeList{};
  list->kind = &kind;
  list->maze = maze;
  list->all_levels = all_levels;
  list->halfwidth = maze->halfwidth;
  for (int32_t part = 0; part < maze_parts && kind.parts[part].size > 0; part++) {
    GrowList_init(&list->parts[part], kind.parts[part].size);
    if (part < kind.passes) GrowList_reserve(&list->parts[part], maze->nodes.count);
  }
  GrowList_init(&list->chunks, sizeof(MazeChunk));
  GrowList_init(&list->below, sizeof(MazeBelow));
  return list;
}

void collect(MazeList *list, const World *world) {
  MazeRun run = {list->maze, 0, maze_count(list->maze), list->all_levels, world};
  for (; run.end > 0; run.end = run.first) {
    run.first = std::max(run.end - list->kind->chunk, 0);
    MazeChunk chunk = {run.first, run.end, {}, false, {box_empty, list->halfwidth}};
    list->kind->collect(run, list->parts, &chunk.bounds.box);
    for (int32_t part = 0; part < maze_parts; part++)
      chunk.body_end[part] = list->parts[part].count;
    GrowList_append(&list->chunks, &chunk);
  }
}

void find_below(MazeList *list) {
  for (int32_t i = maze_count(list->maze) - 1; i >= 0; i--) {
    const MazeBelow row = {maze_nodes(list->maze)[i].submaze, nullptr, {}};
    if (row.maze != nullptr) GrowList_append(&list->below, &row);
  }
}

// Whether a chunk has the same bodies in two lists.
bool is_same_chunk(const MazeList *a, const MazeList *b, uint32_t k) {
  for (int32_t pass = 0; pass < a->kind->passes; pass++) {
    const uint32_t begin_a = maze_chunk_begin(a, k, pass), begin_b = maze_chunk_begin(b, k, pass);
    const uint32_t count = rows<MazeChunk>(a->chunks)[k].body_end[pass] - begin_a;
    if (count != rows<MazeChunk>(b->chunks)[k].body_end[pass] - begin_b ||
        !GrowList_same_rows(&a->parts[pass], begin_a, &b->parts[pass], begin_b, count))
      return false;
  }
  return true;
}

// Takes over the display lists of an older state of the maze, which are in part up to date.
void take_over(MazeList *list, MazeList *old) {
  if (list->kind != old->kind || list->chunks.count != old->chunks.count ||
      list->halfwidth != old->halfwidth)
    return;
  for (uint32_t k = 0; k < list->chunks.count; k++) {
    rows<MazeChunk>(list->chunks)[k].compiled =
        rows<MazeChunk>(old->chunks)[k].compiled && is_same_chunk(list, old, k);
  }
  std::swap(list->first_name, old->first_name);
}

MazeList *find_or_make(Maze *maze, const MazeListKind &kind, int32_t all_levels,
                       const World *world) {
  if (MazeList *known = maze_list_known(maze, kind)) return known;
  MazeList *list = list_new(maze, kind, all_levels);
  collect(list, world);
  find_below(list);
  if (MazeList *old = take_parked(maze, kind)) {
    take_over(list, old);
    release(old);
  }
  Attachment_add(maze, kind.name, reinterpret_cast<intptr_t>(list), list_destroy);
  return list;
}

void unite(MazeBounds *bounds, const MazeBounds &other) {
  Box_unite(&bounds->box, other.box);
  bounds->halfwidth = std::max(bounds->halfwidth, other.halfwidth);
}

// The bounds without all below.
void start_bounds(MazeList *list) {
  list->all = {box_empty, 0};
  for (uint32_t k = 0; k < list->chunks.count; k++)
    unite(&list->all, rows<MazeChunk>(list->chunks)[k].bounds);
}

// The list of the maze in row i, made if it is missing.
MazeList *list_below(MazeList *list, uint32_t i, const World *world) {
  MazeBelow &row = rows<MazeBelow>(list->below)[i];
  if (row.list != nullptr) return row.list;
  row.list = find_or_make(row.maze, *list->kind, 1, world);
  assert(row.list->above == nullptr);
  row.list->above = list;
  row.list->place = i;
  return row.list;
}

void take_bounds(MazeList *list, uint32_t i) {
  MazeBelow &row = rows<MazeBelow>(list->below)[i];
  row.bounds = row.list->all;
  unite(&list->all, row.bounds);
}

// Looks only where something is missing or may be, somewhere below.
MazeList *complete(Maze *maze, const MazeListKind &kind, const World *world) {
  MazeList *root = find_or_make(maze, kind, 1, world);
  MazeList *list = root;
  if (!list->complete) start_bounds(list);
  for (uint32_t i = 0; !root->complete;) {
    if (i == list->below.count) {
      list->complete = true;
      if (list == root) break;
      i = list->place;
      list = list->above;
    } else if (MazeList *below = list_below(list, i, world); below->complete) {
      take_bounds(list, i++);
    } else {
      list = below;
      i = 0;
      start_bounds(list);
    }
  }
  return root;
}

void call_chunks(const MazeView &view, MazeList *list, int32_t pass) {
  for (uint32_t k = 0; k < list->chunks.count; k++) {
    if (!maze_view_shows(view, rows<MazeChunk>(list->chunks)[k].bounds)) continue;
    maze_chunk_compile(list, k);
    glCallList(list_name(list, k, pass));
  }
}

void call_passes(const MazeView &view, MazeList *list, int32_t pass) {
  if (pass != every_pass) return call_chunks(view, list, pass);
  for (int32_t each = 0; each < list->kind->passes; each++)
    call_chunks(view, list, each);
}

// Sets `has_user` from the user's list up. Only a kind with a marker asks for it.
void set_has_user(const MazeView &view, bool has_user) {
  if (view.kind->marker == nullptr) return;
  for (MazeList *list = maze_list_known(view.world->cur.maze, *view.kind); list != nullptr;
       list = list->above)
    list->has_user = has_user;
}

bool is_called(const MazeView &view, const MazeList *list, const MazeBounds &bounds) {
  return maze_view_shows(view, bounds) || (view.kind->marker != nullptr && list->has_user);
}

void call_one(const MazeView &view, MazeList *list, int32_t pass) {
  call_passes(view, list, pass);
  if (view.kind->marker != nullptr && view.world->cur.maze == list->maze)
    view.kind->marker(view.world);
}

void call_tree(const MazeView &view, MazeList *root, int32_t pass) {
  if (!is_called(view, root, root->all)) return;
  call_one(view, root, pass);
  MazeList *list = root;
  for (uint32_t i = 0; list != root || i < root->below.count;) {
    if (i == list->below.count) {
      i = list->place + 1;
      list = list->above;
      continue;
    }
    const MazeBelow &row = rows<MazeBelow>(list->below)[i++];
    if (!is_called(view, row.list, row.bounds)) continue;
    call_one(view, row.list, pass);
    list = row.list;
    i = 0;
  }
}

} // namespace

MazeList *maze_list(Maze *maze, const MazeListKind &kind, int32_t all_levels, const World *world) {
  return all_levels != 0 ? complete(maze, kind, world) : find_or_make(maze, kind, 0, world);
}

MazeList *maze_list_known(const Maze *maze, const MazeListKind &kind) {
  return reinterpret_cast<MazeList *>(Attachment_find(maze, kind.name));
}

uint32_t maze_chunk_begin(const MazeList *list, uint32_t chunk, int32_t part) {
  return chunk == 0 ? 0 : rows<MazeChunk>(list->chunks)[chunk - 1].body_end[part];
}

void maze_chunk_compile(MazeList *list, uint32_t k) {
  MazeChunk &chunk = rows<MazeChunk>(list->chunks)[k];
  if (chunk.compiled) return;
  if (list->first_name == 0) list->first_name = glGenLists(name_count(list));
  for (int32_t pass = 0; pass < list->kind->passes; pass++) {
    const MazePart &part = list->kind->parts[pass];
    glNewList(list_name(list, k, pass), GL_COMPILE);
    if (list->kind->before != nullptr) list->kind->before();
    glBegin(part.primitive);
    part.draw(list->parts[pass], maze_chunk_begin(list, k, pass), chunk.body_end[pass],
              list->halfwidth);
    glEnd();
    if (list->kind->after != nullptr) list->kind->after();
    glEndList();
  }
  chunk.compiled = true;
}

MazeView maze_view(const Maze *root, const MazeListKind &kind, const World *world) {
  return {&kind, world, sight_now(), root->halfwidth};
}

bool maze_view_shows(const MazeView &view, const MazeBounds &bounds) {
  double growth = 0;
  if (view.kind->growth != nullptr)
    growth = view.kind->growth(bounds.box, std::max(bounds.halfwidth, view.root_halfwidth),
                               view.world->camera);
  return !Sight_excludes(view.sight, bounds.box, growth, view.kind->planes);
}

void maze_list_call(Maze *root, const MazeListKind &kind, int32_t pass, int32_t all_levels,
                    const World *world) {
  MazeList *list = maze_list(root, kind, all_levels, world);
  const MazeView view = maze_view(root, kind, world);
  if (all_levels == 0) return call_passes(view, list, pass);
  set_has_user(view, true);
  call_tree(view, list, pass);
  set_has_user(view, false);
}

void maze_list_emit(Maze *maze, const MazeListKind &kind, int32_t pass, int32_t all_levels) {
  MazeList *list = list_new(maze, kind, all_levels);
  collect(list, nullptr);
  kind.parts[pass].draw(list->parts[pass], 0, list->parts[pass].count, list->halfwidth);
  release(list);
}
