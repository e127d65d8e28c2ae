#include "world/session.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstdio>
#include <memory>

#include "maze/maze_file.h"
#include "maze/pos.h"
#include "support/bytes.h"
#include "support/file.h"
#include "world/roamer_file.h"

namespace {

// The list header of the Roamers in the block, which does not depend on the list. Their rows are in
// a block of their own, see world/roamer_file.h.
constexpr uint32_t header_data = 0, header_mirror = 0, header_count = 0, header_capacity = 1,
                   header_initial = 1, header_elemsize = 32;
constexpr float header_growth = 60.0F;
constexpr size_t block_size = 144, block_numbers = 14;
constexpr size_t buffer_size = 1 << 20; // for reading
constexpr int32_t max_tries = 10;       // to save, if signals interrupt it

void write_block(ByteWriter *out, const World *world) {
  write_number(out, world->time);
  for (const auto &row : world->view.m)
    for (const double element : row)
      write_number(out, element);
  for (const double coordinate : {world->camera.x, world->camera.y, world->camera.z})
    write_number(out, coordinate);
  write_number(out, world->zoom);
  write_number(out, world->showtrail);
  for (const uint32_t field :
       {header_data, header_mirror, header_count, header_capacity, header_initial, header_elemsize})
    write_number(out, field);
  write_number(out, header_growth);
}

// Reads the block; the list header of the Roamers in it is ignored.
void read_block(ByteReader *in, World *world) {
  const uint8_t *bytes = read_bytes(in, block_size);
  if (bytes == nullptr) return;
  double numbers[block_numbers];
  for (double &number : numbers) {
    number = load_le<double>(bytes);
    bytes += 8;
  }
  world->time = numbers[0];
  std::copy_n(numbers + 1, 9, &world->view.m[0][0]);
  world->camera = {numbers[10], numbers[11], numbers[12]};
  world->zoom = numbers[13];
  world->showtrail = load_le<int32_t>(bytes);
}

void sanitise_numbers(World *world) {
  if (!std::isfinite(world->time) || world->time < 0.0) world->time = 0.0;
  if (!std::isfinite(world->zoom) || world->zoom <= 0.0) world->zoom = initial_zoom;
  for (int32_t row = 0; row < 3; row++)
    if (!is_finite(Mat3_row(world->view, row))) world->view = mat3_identity;
  if (!is_finite(world->camera)) World_place_camera(world);
  // The user's node may have no finite position: repulsion can do that.
  if (!is_finite(world->camera)) world->camera = {0.0, 0.0, world->zoom};
}

// False, with errno, on failure.
bool save_once(const World *world, const char *path) {
  FileReplacement file;
  if (!file_replace_begin(&file, path, false)) return false;
  const auto out = std::make_unique<ByteWriter>();
  out->file = file.stream;
  World_write(world, out.get());
  return file_replace_end(&file, !out->failed);
}

// Why a session could not be read.
SessionLoad load_error(const ByteReader &in) {
  if (in.out_of_memory) errno = ENOMEM;
  return in.out_of_memory || std::ferror(in.file) != 0 ? SessionLoad::unreadable
                                                       : SessionLoad::damaged;
}

} // namespace

void World_write(const World *world, ByteWriter *out) {
  Maze_write(world->root, out, world->cur.maze);
  write_number(out, world->cur.node);
  write_block(out, world);
  Roamers_write(world, out);
  flush_bytes(out);
}

bool World_save(const World *world, const char *path) {
  for (int32_t tries = 1; tries <= max_tries; tries++) {
    if (save_once(world, path)) return true;
    if (errno != EINTR) return false;
  }
  return false;
}

void World_serialise(const World *world, GrowList *blocks) {
  const auto out = std::make_unique<ByteWriter>();
  out->blocks = blocks;
  World_write(world, out.get());
}

bool World_read(World *world, ByteReader *in) {
  World loaded = {};
  loaded.root = Maze_read(in, &loaded.cur.maze);
  if (loaded.root == nullptr) return false;
  loaded.cur.node = read_number<int32_t>(in);
  read_block(in, &loaded);
  GrowList_init(&loaded.roamers, sizeof(Roamer));
  if (in->failed || !Pos_is_place(loaded.cur) || !Roamers_read(&loaded, in)) {
    World_free(&loaded);
    return false;
  }
  sanitise_numbers(&loaded);
  *world = loaded;
  return true;
}

SessionLoad World_load(World *world, const char *path) {
  FILE *file = file_open(path);
  if (file == nullptr) return errno == ENOENT ? SessionLoad::absent : SessionLoad::unreadable;
  SessionLoad result = SessionLoad::unreadable;
  const long size = file_size(file);
  if (size >= 0 && file_has_holes(file)) { // a saved file has none, and they could fill the memory
    result = SessionLoad::damaged;
  } else if (size >= 0) {
    const auto buffer = std::make_unique_for_overwrite<uint8_t[]>(buffer_size);
    ByteReader in = file_reader(file, static_cast<size_t>(size), buffer.get(), buffer_size);
    result = World_read(world, &in) ? SessionLoad::loaded : load_error(in);
  }
  file_close_read(file);
  return result;
}
