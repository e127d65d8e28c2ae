// The preparation of texts: in a buffer of the room that is told, the forms end inside it.
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "text/prepare.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  if (size == 0) return 0;
  const std::string given = std::string(data + 1, data + size) + std::string(6, '\0');
  const size_t length = static_cast<size_t>(text_end_of(given.c_str()) - given.c_str());
  std::vector<char> buffer(text_prepare_room(length));
  std::memcpy(buffer.data(), given.c_str(), length);
  text_prepare(buffer.data(), data[0]);
  text_prepare_tags(buffer.data());
  if (text_end_of(buffer.data()) >= buffer.data() + buffer.size()) __builtin_trap();
  return 0;
}
