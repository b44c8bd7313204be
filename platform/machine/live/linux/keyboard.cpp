#include <algorithm>
#include <array>
#include <vector>

#include "common/text.h"
#include "platform/machine/live/category.h"
#include "platform/machine/live/linux/desktop_keys.h"
#include "platform/machine/live/linux/input_devices.h"
#include "platform/machine/live/linux/system_file.h"
#include "platform/os/paths.h"

namespace machine {
namespace {

constexpr std::size_t kTextLimit = std::size_t{256} << 10;

// The machine's own before those that are plugged in.
void ReadKeyboard(Devices& devices) {
  const std::vector<Keyboard> keyboards =
      FindKeyboards(ReadText(os::SystemPath("/proc/bus/input/devices"), kTextLimit));
  if (keyboards.empty()) return;
  const auto own = std::ranges::find(keyboards, true, &Keyboard::isBuiltIn);
  const Keyboard& shown = own == keyboards.end() ? keyboards.front() : *own;
  devices.answers.Set(InfoCall::KeyboardName, common::Utf8ToWide(shown.name));
}

constexpr auto kTests = std::to_array<LiveTest>({
    {TestCall::KeyboardFilterKey, [](const Devices&, TestCall, int) { return TestSlowKeys(); },
     CallLimit::Device},
    {TestCall::KeyboardHotKey, [](const Devices&, TestCall, int) { return TestHotKeys(); },
     CallLimit::Device},
});

constexpr auto kRepairs = std::to_array<LiveRepair>({
    {RepairCall::FilterKey, [](std::uint32_t) { return TurnSlowKeysOff(); }, CallLimit::Repair},
});

}  // namespace

Category KeyboardCategory() {
  return {.read = ReadKeyboard, .tests = kTests, .repairs = kRepairs};
}

}  // namespace machine
