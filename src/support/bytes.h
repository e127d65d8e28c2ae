#pragma once

#include <bit>
#include <cassert>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "support/list.h"

// Numbers of fixed width, little-endian, to and from bytes.

static_assert(std::endian::native == std::endian::little, "a big-endian machine has to swap here");

// The number that stands at `bytes`.
template <typename Unsigned> Unsigned number_at(const uint8_t *bytes) {
  Unsigned number;
  std::memcpy(&number, bytes, sizeof number);
  return number;
}

inline uint32_t u32_at(const uint8_t *bytes) {
  return number_at<uint32_t>(bytes);
}
inline int32_t i32_at(const uint8_t *bytes) {
  return static_cast<int32_t>(u32_at(bytes));
}
inline double f64_at(const uint8_t *bytes) {
  return std::bit_cast<double>(number_at<uint64_t>(bytes));
}

// Puts a number there and returns the place behind it.
template <typename Number> uint8_t *put_number(uint8_t *at, Number number) {
  std::memcpy(at, &number, sizeof number);
  return at + sizeof number;
}

// What is left to read: bytes in memory and, behind them, the rest of a file, of which `buffer`
// holds a part at a time. A read past the end gives 0, moves nothing and sets `failed`.
struct ByteReader {
  const uint8_t *at, *end;
  bool failed;
  bool out_of_memory; // why it failed: for its user to set
  FILE *file;         // null if all is in memory
  size_t in_file;     // bytes that have not been fetched yet
  uint8_t *buffer;
  size_t buffer_size;
};

inline ByteReader memory_reader(const uint8_t *bytes, size_t size) {
  return {bytes, bytes + size, false, false, nullptr, 0, nullptr, 0};
}

// A reader of the next `size` bytes of the file, through a buffer that is the caller's.
inline ByteReader file_reader(FILE *file, size_t size, uint8_t *buffer, size_t buffer_size) {
  return {buffer, buffer, false, false, file, size, buffer, buffer_size};
}

inline size_t bytes_left(const ByteReader *in) {
  return static_cast<size_t>(in->end - in->at) + in->in_file;
}

// Fills the buffer behind what is left of it.
inline void fetch_bytes(ByteReader *in) {
  const size_t kept = static_cast<size_t>(in->end - in->at);
  std::memmove(in->buffer, in->at, kept);
  const size_t room = in->buffer_size - kept;
  const size_t wanted = room < in->in_file ? room : in->in_file;
  const size_t got = std::fread(in->buffer + kept, 1, wanted, in->file);
  // Less than there should be: ferror tells whether the file got shorter or couldn't be read.
  in->in_file = got == wanted ? in->in_file - got : 0;
  in->at = in->buffer;
  in->end = in->buffer + kept + got;
}

// The next `size` bytes, valid until the next read, or null. At most the buffer's size at a time.
inline const uint8_t *read_bytes(ByteReader *in, size_t size) {
  assert(in->file == nullptr || size <= in->buffer_size);
  if (static_cast<size_t>(in->end - in->at) < size && in->in_file > 0) fetch_bytes(in);
  if (static_cast<size_t>(in->end - in->at) < size) {
    in->failed = true;
    return nullptr;
  }
  const uint8_t *bytes = in->at;
  in->at += size;
  return bytes;
}

inline uint8_t read_u8(ByteReader *in) {
  const uint8_t *bytes = read_bytes(in, 1);
  return bytes != nullptr ? *bytes : 0;
}
inline uint32_t read_u32(ByteReader *in) {
  const uint8_t *bytes = read_bytes(in, 4);
  return bytes != nullptr ? u32_at(bytes) : 0;
}
inline int32_t read_i32(ByteReader *in) {
  return static_cast<int32_t>(read_u32(in));
}

// Some bytes in memory, from malloc.
struct ByteBlock {
  uint8_t *bytes;
  size_t size;
};

// A buffer in front of a file or, where that is null, of a list of ByteBlock. Once a write has
// failed, nothing more is written; errno then has the cause of the first failure.
struct ByteWriter {
  FILE *file;
  GrowList *blocks;
  size_t used;
  bool failed;
  uint8_t buffer[1 << 16];
};

// False, with errno, if there is no memory for it.
inline bool keep_block(GrowList *blocks, const uint8_t *bytes, size_t size) {
  const bool full = blocks->count == blocks->capacity;
  if (full && !GrowList_reserve(blocks, 2 * blocks->capacity)) return false;
  const ByteBlock block = {static_cast<uint8_t *>(std::malloc(size)), size};
  if (block.bytes == nullptr) return false;
  std::memcpy(block.bytes, bytes, size);
  GrowList_append(blocks, &block);
  return true;
}

inline void flush_bytes(ByteWriter *out) {
  if (!out->failed && out->used > 0)
    out->failed = out->file != nullptr
                      ? std::fwrite(out->buffer, 1, out->used, out->file) != out->used
                      : !keep_block(out->blocks, out->buffer, out->used);
  out->used = 0;
}

inline void write_bytes(ByteWriter *out, const void *bytes, size_t size) {
  for (const uint8_t *from = static_cast<const uint8_t *>(bytes); size > 0;) {
    if (out->used == sizeof out->buffer) flush_bytes(out);
    const size_t room = sizeof out->buffer - out->used;
    const size_t part = size < room ? size : room;
    std::memcpy(out->buffer + out->used, from, part);
    out->used += part;
    from += part;
    size -= part;
  }
}

template <typename Number> void write_number(ByteWriter *out, Number number) {
  write_bytes(out, &number, sizeof number);
}
