#pragma once

#include <bit>
#include <cassert>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>

#include "support/list.h"

// Numbers of fixed width, little-endian, in memory and in files.

static_assert(std::endian::native == std::endian::little, "a big-endian machine must swap here");

// Loads a number from any address.
template <typename Number> Number load_le(const uint8_t *bytes) {
  Number number;
  std::memcpy(&number, bytes, sizeof number);
  return number;
}

// Stores a number at any address; returns the address after it.
template <typename Number> uint8_t *store_le(uint8_t *at, Number number) {
  std::memcpy(at, &number, sizeof number);
  return at + sizeof number;
}

// Reads the next bytes of a file through a buffer. A read past the end gives 0, moves nothing and
// sets `failed`.
struct ByteReader {
  const uint8_t *at, *end; // buffered bytes that were not read yet
  bool failed;
  bool out_of_memory; // reason for `failed`; set by the user of the reader
  FILE *file;
  size_t unread; // bytes that are still in the file
  uint8_t *buffer;
  size_t buffer_size;
};

// A reader of the next `size` bytes of a file; the buffer stays the caller's.
ByteReader file_reader(FILE *file, size_t size, uint8_t *buffer, size_t buffer_size);

// Moves what is left in the buffer to its start and fills the rest from the file.
void refill(ByteReader *in);

inline size_t bytes_left(const ByteReader *in) {
  return static_cast<size_t>(in->end - in->at) + in->unread;
}

// The next `size` bytes, at most the size of the buffer; null if there are fewer. Valid until the
// next read.
inline const uint8_t *read_bytes(ByteReader *in, size_t size) {
  assert(size <= in->buffer_size);
  if (static_cast<size_t>(in->end - in->at) < size && in->unread > 0) refill(in);
  if (static_cast<size_t>(in->end - in->at) < size) {
    in->failed = true;
    return nullptr;
  }
  const uint8_t *bytes = in->at;
  in->at += size;
  return bytes;
}

template <typename Number> Number read_number(ByteReader *in) {
  const uint8_t *bytes = read_bytes(in, sizeof(Number));
  return bytes != nullptr ? load_le<Number>(bytes) : Number{};
}

// Bytes in memory, released with std::free.
struct ByteBlock {
  uint8_t *bytes;
  size_t size;
};

constexpr size_t write_block_size = 1 << 18; // what a writer passes on at once
constexpr size_t max_record_size = 512;

// A buffer in front of a file or, if `file` is null, of a list of ByteBlock. After a failure
// nothing more is written, and errno has its cause.
struct ByteWriter {
  FILE *file;
  GrowList *blocks;
  size_t used;       // bytes in the buffer, less than a block
  size_t since_sync; // bytes passed on since the last file_sync_begin
  bool failed;
  uint8_t buffer[write_block_size + max_record_size];
};

// Passes the buffered bytes on.
void flush_bytes(ByteWriter *out);

// Passes a whole block on and keeps the bytes behind it.
void flush_block(ByteWriter *out);

// Where the next bytes go, at most max_record_size. Pass the address after them to end_record.
inline uint8_t *begin_record(ByteWriter *out) {
  return out->buffer + out->used;
}

inline void end_record(ByteWriter *out, const uint8_t *end) {
  out->used = static_cast<size_t>(end - out->buffer);
  if (out->used >= write_block_size) flush_block(out);
}

void write_bytes(ByteWriter *out, const void *bytes, size_t size);

template <typename Number> void write_number(ByteWriter *out, Number number) {
  end_record(out, store_le(begin_record(out), number));
}
