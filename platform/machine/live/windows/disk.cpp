#include "platform/machine/live/disk.h"

#include <windows.h>
// After the header that its types come from.
#include <winioctl.h>

#include <optional>

#include "platform/machine/live/windows/disk_description.h"
#include "platform/os/windows/handle.h"

namespace machine {
namespace {

// Numbers that were given out; those of drives that were pulled out stay free in between.
constexpr unsigned kDriveNumbers = 64;

constexpr std::size_t kDescriptorLimit = 4096;

/// Opened without any rights, which every user may: the questions asked here need none.
os::Handle OpenDrive(unsigned number) {
  const std::wstring name = L"\\\\.\\PhysicalDrive" + std::to_wstring(number);
  HANDLE const opened = CreateFileW(name.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                    OPEN_EXISTING, 0, nullptr);
  return os::Handle(opened);
}

/// The number of bytes answered; 0 when the drive does not answer.
DWORD AskProperty(HANDLE drive, STORAGE_PROPERTY_ID property, void* answer, std::size_t size) {
  STORAGE_PROPERTY_QUERY query{};
  query.PropertyId = property;
  query.QueryType = PropertyStandardQuery;
  DWORD answered = 0;
  const BOOL done = DeviceIoControl(drive, IOCTL_STORAGE_QUERY_PROPERTY, &query, sizeof query,
                                    answer, static_cast<DWORD>(size), &answered, nullptr);
  return done != 0 ? answered : 0;
}

std::vector<std::byte> AskDescriptor(HANDLE drive) {
  std::vector<std::byte> descriptor(kDescriptorLimit);
  descriptor.resize(
      AskProperty(drive, StorageDeviceProperty, descriptor.data(), descriptor.size()));
  return descriptor;
}

// Not by the length itself: asking for it needs the right to read the drive.
std::uint64_t AskSize(HANDLE drive) {
  constexpr std::size_t kPartitionInformation = 256;
  alignas(DISK_GEOMETRY_EX) std::byte answer[sizeof(DISK_GEOMETRY_EX) + kPartitionInformation]{};
  DWORD answered = 0;
  const BOOL done = DeviceIoControl(drive, IOCTL_DISK_GET_DRIVE_GEOMETRY_EX, nullptr, 0, answer,
                                    sizeof answer, &answered, nullptr);
  if (done == 0) return 0;
  return static_cast<std::uint64_t>(
      reinterpret_cast<const DISK_GEOMETRY_EX*>(answer)->DiskSize.QuadPart);
}

std::optional<bool> AskSeekPenalty(HANDLE drive) {
  DEVICE_SEEK_PENALTY_DESCRIPTOR answer{};
  if (AskProperty(drive, StorageDeviceSeekPenaltyProperty, &answer, sizeof answer) < sizeof answer)
    return std::nullopt;
  return answer.IncursSeekPenalty != 0;
}

}  // namespace

std::vector<Disk> ListDisks() {
  std::vector<Disk> disks;
  for (unsigned number = 0; number < kDriveNumbers; ++number) {
    const os::Handle drive = OpenDrive(number);
    if (!drive) continue;
    const DriveAnswers answers{AskDescriptor(drive.Get()), AskSize(drive.Get()),
                               AskSeekPenalty(drive.Get())};
    if (auto disk = DescribeDisk(number, answers)) disks.push_back(*std::move(disk));
  }
  return disks;
}

}  // namespace machine
