#include "platform/machine/live/live_machine.h"

#include <algorithm>

#include "common/log.h"
#include "common/text.h"
#include "platform/machine/live/child_call.h"
#include "platform/machine/live/fitting.h"

namespace machine {
namespace {

const TestAnswer kNoDevice{1, L"there is no such device that can be tested", false, {}};
const RepairAnswer kNoRepair{1, false, L"this repair cannot be made on this machine"};

/// The row of a call among what the categories can do, or null.
template <typename Row, typename Call>
const Row* FindRow(std::span<const Row> Category::*rows, Call call) {
  for (const CategoryOf category : Categories()) {
    const std::span<const Row> known = category().*rows;
    const auto found = std::ranges::find(known, call, &Row::call);
    if (found != known.end()) return &*found;
  }
  return nullptr;
}

Devices ReadDevices() {
  Devices devices;
  devices.firmware = ReadFirmware();
  if (!devices.firmware.hasTable)
    COMMON_LOG_INFO(log4cxx::Logger::getLogger("orv.machine"),
                    "the firmware's tables cannot be read");
  for (const CategoryOf category : Categories())
    if (const auto read = category().read) read(devices);
  return devices;
}

}  // namespace

const Inventory& LiveMachine::Info() {
  return ReadOnce().answers;
}

std::wstring LiveMachine::ProductName() {
  return common::Utf8ToWide(ReadOnce().firmware.productName);
}

TestAnswer LiveMachine::Test(TestCall call, std::size_t, int disk) {
  const LiveTest* row = FindRow(&Category::tests, call);
  if (row == nullptr) return kNoDevice;
  if (guarded && row->limit != CallLimit::None) return TestInChild(call, disk, LimitOf(row->limit));
  return row->run(ReadOnce(), call, disk);
}

bool LiveMachine::IsSupported(SupportCall call) {
  const LiveSupport* row = FindRow(&Category::supports, call);
  return row != nullptr && row->check(call);
}

RepairAnswer LiveMachine::Repair(RepairCall call, std::size_t, std::uint32_t code) {
  const LiveRepair* row = FindRow(&Category::repairs, call);
  if (row == nullptr) return kNoRepair;
  if (guarded && row->limit != CallLimit::None)
    return RepairInChild(call, code, LimitOf(row->limit));
  return row->run(code);
}

std::vector<Part> LiveMachine::NotFitted() {
  const Devices& known = ReadOnce();
  return FindNotFitted(known.firmware, known.answers);
}

const Devices& LiveMachine::ReadOnce() {
  std::call_once(wasRead, [this] { devices = ReadDevices(); });
  return devices;
}

}  // namespace machine
