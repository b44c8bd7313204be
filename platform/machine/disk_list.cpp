#include "platform/machine/disk_list.h"

#include <algorithm>
#include <array>

#include "common/text.h"

namespace machine {
namespace {

constexpr auto kTransports = std::to_array<std::string_view>({"ATA", "NVMe"});

}  // namespace

std::string DiskCaption(const std::string& vendor, const std::string& model) {
  if (vendor.empty() || std::ranges::count(kTransports, vendor) > 0) return model;
  return model.empty() ? vendor : vendor + ' ' + model;
}

void FillDisks(Inventory& inventory, const std::vector<Disk>& disks) {
  for (std::size_t i = 0; i < disks.size(); ++i) {
    const Disk& disk = disks[i];
    inventory.Set(InfoCall::DiskCaption, common::Utf8ToWide(disk.caption), i);
    inventory.Set(InfoCall::DiskVendorCapacity, disk.vendorGigabytes, i);
    inventory.Set(InfoCall::DiskSerialNumber, common::Utf8ToWide(disk.serialNumber), i);
    inventory.Set(InfoCall::DiskFirmwareRevision, common::Utf8ToWide(disk.firmwareRevision), i);
    inventory.Set(InfoCall::DiskIsSolidState, disk.isSolidState, i);
  }
  inventory.Set(InfoCall::DiskCount, std::uint64_t{disks.size()});
}

}  // namespace machine
