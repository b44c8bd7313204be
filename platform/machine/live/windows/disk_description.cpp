#include "platform/machine/live/windows/disk_description.h"

#include <windows.h>
// After the header that its types come from.
#include <winioctl.h>

#include <cstring>
#include <span>

#include "common/ascii.h"

namespace machine {
namespace {

constexpr std::uint64_t kGigabyte = 1'000'000'000;
constexpr std::size_t kFixedSize = offsetof(STORAGE_DEVICE_DESCRIPTOR, RawDeviceProperties);

/// The text at an offset, to its end or that of the bytes. Offset 0 stands for none.
std::string TextAt(std::span<const std::byte> bytes, DWORD offset) {
  if (offset < kFixedSize || offset >= bytes.size()) return {};
  const std::string text(reinterpret_cast<const char*>(bytes.data()) + offset,
                         bytes.size() - offset);
  return common::Trimmed(text.substr(0, text.find('\0')));
}

}  // namespace

std::optional<Disk> DescribeDisk(unsigned number, const DriveAnswers& answers) {
  const std::span<const std::byte> bytes = answers.descriptor;
  if (bytes.size() < kFixedSize || answers.bytes == 0) return std::nullopt;
  STORAGE_DEVICE_DESCRIPTOR head{};
  std::memcpy(&head, bytes.data(), kFixedSize);

  const std::string model = TextAt(bytes, head.ProductIdOffset);
  Disk disk;
  disk.device = "/dev/pd" + std::to_string(number);
  disk.caption = DiskCaption(TextAt(bytes, head.VendorIdOffset), model);
  disk.vendorGigabytes = answers.bytes / kGigabyte;
  disk.serialNumber = TextAt(bytes, head.SerialNumberOffset);
  disk.firmwareRevision = TextAt(bytes, head.ProductRevisionOffset);
  disk.isSolidState = answers.hasSeekPenalty == false;
  disk.isExternal =
      head.RemovableMedia != 0 || head.BusType == BusTypeUsb || head.BusType == BusTypeSd;
  if (model.empty() && disk.serialNumber.empty()) return std::nullopt;
  if (disk.caption.empty()) disk.caption = "PhysicalDrive" + std::to_string(number);
  return disk;
}

}  // namespace machine
