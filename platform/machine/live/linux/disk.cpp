#include "platform/machine/live/disk.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <initializer_list>
#include <string_view>

#include "common/ascii.h"
#include "platform/machine/live/ata_identity.h"
#include "platform/machine/live/linux/device_folder.h"
#include "platform/machine/live/linux/system_file.h"
#include "platform/machine/live/linux/udev_data.h"
#include "platform/os/paths.h"

namespace machine {
namespace {

namespace fs = std::filesystem;

// The size attribute counts 512 bytes, whatever the disk's own sectors.
constexpr std::uint64_t kSectorsPerGigabyte = 1'000'000'000 / 512;
static_assert(kSectorsPerGigabyte * 512 == 1'000'000'000);

constexpr auto kNotDisks =
    std::to_array<std::string_view>({"loop", "ram", "zram", "dm-", "md", "sr", "fd"});

/// The first text of these files that is not empty.
std::string FirstLine(const fs::path& folder, std::initializer_list<const char*> files) {
  for (const char* file : files)
    if (std::string line = ReadLine(folder / file); !line.empty()) return line;
  return {};
}

bool IsDisk(const std::string& name, const fs::path& folder) {
  if (std::ranges::any_of(kNotDisks, [&](auto prefix) { return name.starts_with(prefix); }))
    return false;
  if (!Exists(folder / "device") || ReadNumber(folder / "size").value_or(0) == 0) return false;
  // Boot areas hang below the disk they belong to; hidden ones are further paths to a disk.
  return !Exists(folder / "device/queue") && ReadLine(folder / "hidden") != "1";
}

/// Plugged in: an SD card or stick, or anything behind a port for such.
bool IsExternal(const fs::path& folder) {
  const fs::path device = DeviceFolder(folder / "device");
  return ReadLine(folder / "removable") == "1" || ReadLine(device / "type") == "SD" ||
         IsOnUsb(device) || !IsInner(device);
}

/// Of an ATA disk, whose names the kernel cuts off: its own, else those that the device manager
/// has.
AtaIdentity WholeIdentity(const fs::path& folder) {
  constexpr std::size_t kPageLimit = 1024;
  if (ReadLine(folder / "device/vendor") != "ATA") return {};
  if (auto own = ParseAtaPage(ReadBytes(folder / "device/vpd_pg89", kPageLimit)))
    return *std::move(own);
  const std::string number = ReadLine(folder / "dev");
  if (number.empty()) return {};
  UdevProperties known = ReadUdevData("b" + number);
  if (known["ID_BUS"] != "ata") return {};
  return {common::Trimmed(DecodeUdevText(known["ID_MODEL_ENC"])), known["ID_SERIAL_SHORT"],
          known["ID_REVISION"]};
}

std::string Caption(const std::string& name, const fs::path& folder) {
  const std::string model = FirstLine(folder, {"device/model", "device/name"});
  if (model.empty()) return name;
  return DiskCaption(ReadLine(folder / "device/vendor"), model);
}

/// Unit serial number page of a SCSI disk: four bytes of header, then text.
std::string PageSerialNumber(const fs::path& folder) {
  constexpr std::size_t kHeader = 4;
  constexpr std::size_t kPageLimit = kHeader + 0xFFFF;
  const std::vector<std::byte> page = ReadBytes(folder / "device/vpd_pg80", kPageLimit);
  if (page.size() <= kHeader) return {};
  const std::string text(reinterpret_cast<const char*>(page.data()) + kHeader,
                         page.size() - kHeader);
  return common::Trimmed(text.substr(0, text.find('\0')));
}

void TakeOver(const AtaIdentity& identity, Disk& disk) {
  if (!identity.model.empty()) disk.caption = identity.model;
  if (!identity.serialNumber.empty()) disk.serialNumber = identity.serialNumber;
  if (!identity.firmwareRevision.empty()) disk.firmwareRevision = identity.firmwareRevision;
}

Disk ReadDisk(const std::string& name, const fs::path& folder) {
  std::string file = name;
  std::ranges::replace(file, '!', '/');  // stands for it in the kernel's name
  Disk disk;
  disk.device = os::SystemPath("/dev/" + file).string();
  disk.caption = Caption(name, folder);
  disk.vendorGigabytes = ReadNumber(folder / "size").value_or(0) / kSectorsPerGigabyte;
  disk.serialNumber = FirstLine(folder, {"device/serial", "serial"});
  if (disk.serialNumber.empty()) disk.serialNumber = PageSerialNumber(folder);
  disk.firmwareRevision = FirstLine(folder, {"device/firmware_rev", "device/rev", "device/fwrev"});
  disk.isSolidState = ReadNumber(folder / "queue/rotational") == 0;
  disk.isExternal = IsExternal(folder);
  TakeOver(WholeIdentity(folder), disk);
  return disk;
}

}  // namespace

std::vector<Disk> ListDisks() {
  const fs::path parent = os::SystemPath("/sys/block");
  std::vector<Disk> disks;
  for (const std::string& name : ListNames(parent))
    if (IsDisk(name, parent / name)) disks.push_back(ReadDisk(name, parent / name));
  return disks;
}

}  // namespace machine
