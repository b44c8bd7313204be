#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <stdexcept>
#include <vector>

#include "common/protocol/ipc_serialize.h"
#include "common/protocol/log_item.h"

namespace {

using namespace protocol;

// What is read from a body and written again is the body's own beginning.
template <typename Value>
void ReadAndWriteBack(const std::uint8_t* data, std::size_t size) {
  CIPCDataIO reading(data, static_cast<std::uint32_t>(size));
  Value value;
  try {
    ReadVersioned(reading, value);
  } catch (const std::runtime_error&) {
    return;
  }
  CIPCDataIO writing;
  WriteVersioned(writing, value);
  if (writing.Position() != reading.Position() ||
      !std::equal(data, data + writing.Position(), writing.Data()))
    std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  ReadAndWriteBack<std::vector<std::int32_t>>(data, size);
  ReadAndWriteBack<std::vector<SYSTEM_DETECT_LOG_ITEM>>(data, size);
  ReadAndWriteBack<std::wstring>(data, size);
  return 0;
}
