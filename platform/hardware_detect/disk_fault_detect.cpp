#include <algorithm>
#include <map>
#include <utility>
#include <vector>

#include "platform/hardware_detect/hardware_detect.h"
#include "platform/machine/current.h"

namespace HardwareDetect {
namespace {

using machine::InfoCall;
using machine::TestCall;

static_assert(sizeof(tagHHD_DISK_SMART_INFO) == machine::kHddFlagCount);
static_assert(sizeof(tagSSD_DISK_SMART_INFO) == machine::kSsdFlagCount);

constexpr int kNoDisk = -1;

// The disk that is number `turn`, counted round and round, among those of one revision and kind.
int FindDisk(const std::wstring& firmwareRevision, bool isSolidState, std::size_t turn) {
  const machine::Inventory& info = machine::Current().Info();
  const auto count = static_cast<int>(info.Number(InfoCall::DiskCount));
  std::vector<int> disks;
  for (int disk = 0; disk < count; ++disk) {
    if (info.Text(InfoCall::DiskFirmwareRevision, disk) == firmwareRevision &&
        info.Flag(InfoCall::DiskIsSolidState, disk) == isSolidState)
      disks.push_back(disk);
  }
  return disks.empty() ? kNoDisk : disks[turn % disks.size()];
}

template <std::size_t Size>
void CopyFlags(const std::vector<std::uint8_t>& from, std::uint8_t (&to)[Size]) {
  std::ranges::fill(to, std::uint8_t{0});
  std::ranges::copy_n(from.begin(), static_cast<std::ptrdiff_t>(std::min(from.size(), Size)), to);
}

}  // namespace

struct CDiskFaultDetect::Turns {
  std::map<std::pair<TestCall, std::wstring>, std::size_t> taken;  // by kind and revision
};

CDiskFaultDetect::CDiskFaultDetect() : turns(std::make_unique<Turns>()) {}
CDiskFaultDetect::~CDiskFaultDetect() = default;

machine::TestAnswer CDiskFaultDetect::AskDisk(TestCall call, const std::wstring& firmwareRevision) {
  const std::size_t turn = turns->taken[{call, firmwareRevision}]++;
  return Ask(call, FindDisk(firmwareRevision, call == TestCall::DiskSsdSmart, turn));
}

std::uint32_t CDiskFaultDetect::CheckHhdSmartResult(const std::wstring& firmwareRevision,
                                                    tagHHD_DISK_SMART_INFO& flags, int&) {
  const machine::TestAnswer answer = AskDisk(TestCall::DiskHddSmart, firmwareRevision);
  CopyFlags(answer.flags, flags.flags);
  return answer.code;
}

std::uint32_t CDiskFaultDetect::CheckSsdSmartResult(const std::wstring& firmwareRevision,
                                                    tagSSD_DISK_SMART_INFO& flags, int&) {
  const machine::TestAnswer answer = AskDisk(TestCall::DiskSsdSmart, firmwareRevision);
  CopyFlags(answer.flags, flags.flags);
  return answer.code;
}

}  // namespace HardwareDetect
