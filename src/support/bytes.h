#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>

// Numbers of fixed width, little-endian whatever the machine, to and from bytes.

// What is left to read. A read past the end gives 0, moves nothing and sets `failed`.
struct ByteReader {
  const uint8_t *at, *end;
  bool failed;
};

inline size_t bytes_left(const ByteReader *in) {
  return static_cast<size_t>(in->end - in->at);
}

// The next `size` bytes, or null.
inline const uint8_t *read_bytes(ByteReader *in, size_t size) {
  if (bytes_left(in) < size) {
    in->failed = true;
    return nullptr;
  }
  const uint8_t *bytes = in->at;
  in->at += size;
  return bytes;
}

template <typename Unsigned> Unsigned read_number(ByteReader *in) {
  const uint8_t *bytes = read_bytes(in, sizeof(Unsigned));
  Unsigned number = 0;
  for (size_t i = 0; bytes != nullptr && i < sizeof(Unsigned); i++)
    number = static_cast<Unsigned>(number | static_cast<Unsigned>(bytes[i]) << 8 * i);
  return number;
}

inline uint8_t read_u8(ByteReader *in) {
  return read_number<uint8_t>(in);
}
inline uint32_t read_u32(ByteReader *in) {
  return read_number<uint32_t>(in);
}
inline int32_t read_i32(ByteReader *in) {
  return static_cast<int32_t>(read_u32(in));
}
inline double read_f64(ByteReader *in) {
  return std::bit_cast<double>(read_number<uint64_t>(in));
}

// A buffer in front of a file. Once a write has failed, nothing more is written; errno then has the
// cause of the first failure.
struct ByteWriter {
  FILE *file;
  size_t used;
  bool failed;
  uint8_t buffer[1 << 16];
};

inline void flush_bytes(ByteWriter *out) {
  if (!out->failed) out->failed = std::fwrite(out->buffer, 1, out->used, out->file) != out->used;
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

template <typename Unsigned> void write_number(ByteWriter *out, Unsigned number) {
  uint8_t bytes[sizeof(Unsigned)];
  for (size_t i = 0; i < sizeof(Unsigned); i++)
    bytes[i] = static_cast<uint8_t>(number >> 8 * i);
  write_bytes(out, bytes, sizeof bytes);
}

inline void write_u8(ByteWriter *out, uint8_t number) {
  write_number(out, number);
}
inline void write_u32(ByteWriter *out, uint32_t number) {
  write_number(out, number);
}
inline void write_i32(ByteWriter *out, int32_t number) {
  write_number(out, static_cast<uint32_t>(number));
}
inline void write_f64(ByteWriter *out, double number) {
  write_number(out, std::bit_cast<uint64_t>(number));
}
inline void write_f32(ByteWriter *out, float number) {
  write_number(out, std::bit_cast<uint32_t>(number));
}
