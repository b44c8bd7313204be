#include "platform/machine/live/firmware.h"

#include "platform/machine/live/firmware_text.h"
#include "platform/machine/live/linux/system_file.h"
#include "platform/machine/live/linux/udev_data.h"
#include "platform/os/paths.h"

namespace machine {
namespace {

constexpr std::size_t kTableLimit = std::size_t{1} << 20;

// What the kernel shows of the table to those who may not read it.
std::string KernelText(const char* attribute) {
  return ReadLine(os::SystemPath(std::string("/sys/class/dmi/id/") + attribute));
}

}  // namespace

FirmwareInfo ReadFirmware() {
  const std::vector<std::byte> table =
      ReadBytes(os::SystemPath("/sys/firmware/dmi/tables/DMI"), kTableLimit);
  if (!table.empty()) return FirmwareOf(table);
  FirmwareInfo info;
  info.productName = FirmwareText(KernelText("product_name"));
  info.board = {KernelText("board_vendor"), KernelText("board_name"), KernelText("board_version"),
                KernelText("board_serial")};
  info.modules = MemoryModulesOf(ReadUdevData("+dmi:id"));
  return info;
}

}  // namespace machine
