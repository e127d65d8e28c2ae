#include "support/bytes.h"

#include <algorithm>

#include "support/memory.h"

namespace {

void append_block(GrowList *blocks, const uint8_t *bytes, size_t size) {
  const ByteBlock block = {static_cast<uint8_t *>(memory_block(size)), size};
  std::memcpy(block.bytes, bytes, size);
  GrowList_append(blocks, &block);
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
  if (!out->failed && out->used > 0) {
    if (out->file != nullptr)
      out->failed = std::fwrite(out->buffer, 1, out->used, out->file) != out->used;
    else
      append_block(out->blocks, out->buffer, out->used);
  }
  out->used = 0;
}

void write_bytes(ByteWriter *out, const void *bytes, size_t size) {
  for (const uint8_t *from = static_cast<const uint8_t *>(bytes); size > 0;) {
    if (out->used == sizeof out->buffer) flush_bytes(out);
    const size_t part = std::min(size, sizeof out->buffer - out->used);
    std::memcpy(out->buffer + out->used, from, part);
    out->used += part;
    from += part;
    size -= part;
  }
}
