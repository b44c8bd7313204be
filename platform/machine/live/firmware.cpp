#include "platform/machine/live/firmware.h"

#include "common/ascii.h"

namespace machine {

FirmwareInfo FirmwareOf(std::span<const std::byte> bytes) {
  const SmbiosTable table(bytes);
  return {true, common::Trimmed(table.ProductName()), table.BaseBoard(), table.MemoryModules(),
          table.ExternalClockMhz()};
}

}  // namespace machine
