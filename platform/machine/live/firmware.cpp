#include "platform/machine/live/firmware.h"

#include "platform/machine/live/firmware_text.h"

namespace machine {

FirmwareInfo FirmwareOf(std::span<const std::byte> bytes) {
  const SmbiosTable table(bytes);
  return {true, FirmwareText(table.ProductName()), table.BaseBoard(), table.MemoryModules(),
          table.ExternalClockMhz()};
}

}  // namespace machine
