#include "support/bytes.h"

#include <algorithm>

#include "support/file.h"
#include "support/memory.h"

namespace {

constexpr size_t sync_size = size_t{4} << 20; // bytes

void append_block(GrowList *blocks, const uint8_t *bytes, size_t size) {
  const ByteBlock block = {static_cast<uint8_t *>(memory_block(size)), size};
  std::memcpy(block.bytes, bytes, size);
  GrowList_append(blocks, &block);
}

// The disk works on earlier bytes while later ones are prepared.
void write_to_file(ByteWriter *out, size_t size) {
  out->failed = std::fwrite(out->buffer, 1, size, out->file) != size;
  out->since_sync += size;
  if (out->failed || out->since_sync < sync_size) return;
  file_sync_begin(out->file);
  out->since_sync = 0;
}

// Passes bytes from the start of the buffer on.
void pass_on(ByteWriter *out, size_t size) {
  if (out->failed || size == 0) return;
  if (out->file != nullptr)
    write_to_file(out, size);
  else
    append_block(out->blocks, out->buffer, size);
}

} // namespace

ByteReader file_reader(FILE *file, size_t size, uint8_t *buffer, size_t buffer_size) {
  return {buffer, buffer, false, false, file, size, buffer, buffer_size};
}

void refill(ByteReader *in) {
  const size_t kept = static_cast<size_t>(in->end - in->at);
  std::memmove(in->buffer, in->at, kept);
  const size_t wanted = std::min(in->buffer_size - kept, in->unread);
  const size_t got = std::fread(in->buffer + kept, 1, wanted, in->file);
  // After a short read nothing is left. ferror distinguishes an error from a shorter file.
  in->unread = got == wanted ? in->unread - got : 0;
  in->at = in->buffer;
  in->end = in->buffer + kept + got;
}

void flush_bytes(ByteWriter *out) {
  pass_on(out, out->used);
  out->used = 0;
}

void flush_block(ByteWriter *out) {
  pass_on(out, write_block_size);
  out->used -= write_block_size;
  std::memmove(out->buffer, out->buffer + write_block_size, out->used);
}

void write_bytes(ByteWriter *out, const void *bytes, size_t size) {
  for (const uint8_t *from = static_cast<const uint8_t *>(bytes); size > 0;) {
    const size_t part = std::min(size, max_record_size);
    uint8_t *at = begin_record(out);
    std::memcpy(at, from, part);
    end_record(out, at + part);
    from += part;
    size -= part;
  }
}
