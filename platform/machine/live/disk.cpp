#include "platform/machine/live/disk.h"

#include <algorithm>
#include <array>
#include <atomic>

#include "common/text.h"
#include "platform/machine/live/category.h"
#include "platform/machine/live/smart_report.h"
#include "platform/machine/live/smart_tool.h"

namespace machine {
namespace {

constexpr auto kTransports = std::to_array<std::string_view>({"ATA", "NVMe"});

std::atomic<bool>& AreExternalCounted() {
  static std::atomic<bool>& counted = *new std::atomic<bool>(false);
  return counted;
}

void ReadDisks(Devices& devices) {
  devices.disks = ListDisks();
  if (!AreExternalCounted())
    std::erase_if(devices.disks, [](const Disk& disk) { return disk.isExternal; });
  Inventory& answers = devices.answers;
  for (std::size_t i = 0; i < devices.disks.size(); ++i) {
    const Disk& disk = devices.disks[i];
    answers.Set(InfoCall::DiskCaption, common::Utf8ToWide(disk.caption), i);
    answers.Set(InfoCall::DiskVendorCapacity, disk.vendorGigabytes, i);
    answers.Set(InfoCall::DiskSerialNumber, common::Utf8ToWide(disk.serialNumber), i);
    answers.Set(InfoCall::DiskFirmwareRevision, common::Utf8ToWide(disk.firmwareRevision), i);
    answers.Set(InfoCall::DiskIsSolidState, disk.isSolidState, i);
  }
  answers.Set(InfoCall::DiskCount, std::uint64_t{devices.disks.size()});
}

TestAnswer TestSmart(const Devices& devices, TestCall call, int disk) {
  if (disk < 0 || static_cast<std::size_t>(disk) >= devices.disks.size())
    return UnreadableDisk(call, L"there is no such disk");
  return AskSmartTool(call, devices.disks[static_cast<std::size_t>(disk)].device);
}

constexpr auto kTests = std::to_array<LiveTest>({
    {TestCall::DiskHddSmart, TestSmart},
    {TestCall::DiskSsdSmart, TestSmart},
});

}  // namespace

void CountExternalDisks(bool count) {
  AreExternalCounted() = count;
}

std::string DiskCaption(const std::string& vendor, const std::string& model) {
  if (vendor.empty() || std::ranges::count(kTransports, vendor) > 0) return model;
  return model.empty() ? vendor : vendor + ' ' + model;
}

Category DiskCategory() {
  return {.read = ReadDisks, .tests = kTests};
}

}  // namespace machine
