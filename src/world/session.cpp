#include "world/session.h"

#include <cmath>
#include <memory>
#include <vector>

#include "maze/maze_file.h"
#include "maze/pos.h"
#include "support/bytes.h"
#include "support/file.h"

namespace {

// The header of the list of Roamers as it stands in the file, whatever the list is in memory.
constexpr uint32_t header_data = 0, header_mirror = 0, header_count = 0, header_capacity = 1,
                   header_initial = 1, header_elemsize = 32;
constexpr float header_growth = 60.0F;
constexpr size_t header_size = 28;

void write_vec3(ByteWriter *out, Vec3 v) {
  write_f64(out, v.x);
  write_f64(out, v.y);
  write_f64(out, v.z);
}

Vec3 read_vec3(ByteReader *in) {
  const double x = read_f64(in);
  const double y = read_f64(in);
  const double z = read_f64(in);
  return {x, y, z};
}

void write_block(ByteWriter *out, const World *world) {
  write_f64(out, world->time);
  for (int32_t row = 0; row < 3; row++)
    write_vec3(out, Mat3_row(world->view, row));
  write_vec3(out, world->camera);
  write_f64(out, world->zoom);
  write_i32(out, world->showtrail);
  for (const uint32_t field :
       {header_data, header_mirror, header_count, header_capacity, header_initial, header_elemsize})
    write_u32(out, field);
  write_f32(out, header_growth);
}

void read_block(ByteReader *in, World *world) {
  world->time = read_f64(in);
  for (auto &row : world->view.m)
    for (double &element : row)
      element = read_f64(in);
  world->camera = read_vec3(in);
  world->zoom = read_f64(in);
  world->showtrail = read_i32(in);
  read_bytes(in, header_size); // of another run's list
}

void mend_numbers(World *world) {
  if (!std::isfinite(world->time)) world->time = 0.0;
  if (!std::isfinite(world->zoom) || world->zoom <= 0.0) world->zoom = initial_zoom;
  for (int32_t row = 0; row < 3; row++)
    if (!is_finite(Mat3_row(world->view, row))) world->view = mat3_identity;
  if (!is_finite(world->camera)) World_place_camera(world);
}

// A place that a user can stand on.
bool is_place(Pos pos) {
  if (pos.maze == nullptr || pos.node < 0 || pos.node >= maze_count(pos.maze)) return false;
  return maze_nodes(pos.maze)[pos.node].submaze == nullptr;
}

} // namespace

bool World_save(const World *world, const char *path) {
  FileReplacement file;
  if (!file_replace_begin(&file, path, "wb")) return false;
  const auto out = std::make_unique<ByteWriter>();
  out->file = file.stream;
  Maze_write(world->root, out.get(), world->cur.maze);
  write_i32(out.get(), world->cur.node);
  write_block(out.get(), world);
  flush_bytes(out.get());
  return file_replace_end(&file, !out->failed);
}

bool World_from_bytes(World *world, const uint8_t *bytes, size_t size) {
  ByteReader in = {bytes, bytes + size, false};
  World loaded = {};
  loaded.root = Maze_read(&in, &loaded.cur.maze);
  if (loaded.root == nullptr) return false;
  loaded.cur.node = read_i32(&in);
  read_block(&in, &loaded);
  if (in.failed || bytes_left(&in) > 0 || !is_place(loaded.cur)) {
    Maze_destroy(loaded.root, 1);
    return false;
  }
  GrowList_init(&loaded.roamers, sizeof(Roamer));
  mend_numbers(&loaded);
  *world = loaded;
  return true;
}

SessionLoad World_load(World *world, const char *path) {
  std::vector<uint8_t> bytes;
  const FileRead read = file_read_all(path, &bytes);
  if (read == FileRead::absent) return SessionLoad::absent;
  const bool sound = read == FileRead::done && World_from_bytes(world, bytes.data(), bytes.size());
  return sound ? SessionLoad::loaded : SessionLoad::damaged;
}
