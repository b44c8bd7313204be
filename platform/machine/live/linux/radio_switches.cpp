#include "platform/machine/live/linux/radio_switches.h"

#include <fcntl.h>
#include <linux/rfkill.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <optional>

#include "platform/machine/live/linux/device_folder.h"
#include "platform/machine/live/linux/forked_call.h"
#include "platform/machine/live/linux/mending.h"
#include "platform/machine/live/linux/system_file.h"
#include "platform/os/paths.h"

namespace machine {
namespace {

namespace fs = std::filesystem;

struct KindRow {
  RadioKind kind;
  const char* name;
  std::uint8_t number;
};
constexpr auto kKinds = std::to_array<KindRow>({
    {RadioKind::Wireless, "wlan", RFKILL_TYPE_WLAN},
    {RadioKind::Bluetooth, "bluetooth", RFKILL_TYPE_BLUETOOTH},
});

const KindRow& RowOf(RadioKind kind) {
  return kKinds[static_cast<std::size_t>(kind)];
}

/// 0 or an error number. System calls only: runs in a child.
int SendUnblock(const char* file, std::uint8_t kind) {
  rfkill_event event{};
  event.type = kind;
  event.op = RFKILL_OP_CHANGE_ALL;
  const int opened = open(file, O_WRONLY | O_CLOEXEC | O_NONBLOCK);
  if (opened < 0) return errno;
  const ssize_t written = write(opened, &event, RFKILL_EVENT_SIZE_V1);
  return written < 0 ? errno : 0;
}

}  // namespace

std::vector<RadioSwitch> ListRadioSwitches(RadioKind kind) {
  const fs::path parent = os::SystemPath("/sys/class/rfkill");
  std::vector<RadioSwitch> switches;
  for (const std::string& name : ListNames(parent)) {
    if (ReadLine(parent / name / "type") != RowOf(kind).name) continue;
    RadioSwitch found;
    found.device = DeviceFolder(parent / name / "device");
    found.isOffBySoftware = ReadLine(parent / name / "soft") == "1";
    found.isOffByHand = ReadLine(parent / name / "hard") == "1";
    found.isOfMachine = LinkedName(found.device, "subsystem") == "platform";
    if (!found.device.empty() && IsInner(found.device)) switches.push_back(std::move(found));
  }
  return switches;
}

std::wstring UnblockRadios(RadioKind kind) {
  const std::string file = os::SystemPath("/dev/rfkill");
  const std::optional<int> error =
      RunForked([&] { return SendUnblock(file.c_str(), RowOf(kind).number); },
                AfterLimit::LetFinish, kQuestionLimit);
  if (!error) return L"the radios do not answer";
  return *error == 0 ? std::wstring() : ReasonOf(*error);
}

}  // namespace machine
