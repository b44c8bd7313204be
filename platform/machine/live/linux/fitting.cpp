#include "platform/machine/live/fitting.h"

#include <algorithm>
#include <array>
#include <exception>
#include <set>
#include <sstream>
#include <string>

#include "common/log.h"
#include "platform/machine/live/linux/radio_switches.h"
#include "platform/machine/live/linux/system_file.h"
#include "platform/os/paths.h"
#include "platform/os/replace_file.h"

namespace machine {
namespace {

namespace fs = std::filesystem;

using Parts = std::set<Part>;

constexpr std::size_t kFileLimit = 4096;

// Forms of chassis by the numbers of SMBIOS: portable, laptop, notebook, sub-notebook, convertible.
constexpr auto kWithKeyboard = std::to_array<std::uint64_t>({8, 9, 10, 14, 31});
// Hand-held, tablet, detachable.
constexpr auto kWithoutKeyboard = std::to_array<std::uint64_t>({11, 30, 32});

// Left by what runs containers; the chassis that is seen in one is that of the machine around it.
constexpr auto kContainerMarks =
    std::to_array<const char*>({"/.dockerenv", "/run/.containerenv", "/run/systemd/container"});

struct PartRow {
  Part part;
  bool isNeededByPortables;
  InfoCall sign;  // has an answer where the part is there
};
constexpr auto kParts = std::to_array<PartRow>({
    {Part::Audio, true, InfoCall::AudioCardNameByIndex},
    {Part::Bluetooth, false, InfoCall::BluetoothName},
    {Part::Network, true, InfoCall::WirelessIndices},
    {Part::Graphics, true, InfoCall::InternalCardName},
    {Part::Graphics, true, InfoCall::IndependentCardName},
    {Part::Display, true, InfoCall::MonitorCaption},
    {Part::Battery, true, InfoCall::BatteryName},
    {Part::Keyboard, true, InfoCall::KeyboardName},
    {Part::Fingerprint, false, InfoCall::BiometricName},
});

bool IsThere(const Inventory& info, InfoCall sign) {
  return sign == InfoCall::WirelessIndices ? info.Size(sign) > 0 : !info.Text(sign).empty();
}

Parts FindThere(const Inventory& info) {
  Parts parts;
  for (const PartRow& row : kParts)
    if (IsThere(info, row.sign)) parts.insert(row.part);
  return parts;
}

Parts FindNeeded() {
  const bool isContainer = std::ranges::any_of(
      kContainerMarks, [](const char* mark) { return Exists(os::SystemPath(mark)); });
  const std::uint64_t chassis =
      ReadNumber(os::SystemPath("/sys/class/dmi/id/chassis_type")).value_or(0);
  const bool hasKeyboard = std::ranges::count(kWithKeyboard, chassis) > 0;
  if (isContainer || (!hasKeyboard && std::ranges::count(kWithoutKeyboard, chassis) == 0))
    return {};
  Parts parts;
  for (const PartRow& row : kParts)
    if (row.isNeededByPortables && (hasKeyboard || row.part != Part::Keyboard))
      parts.insert(row.part);
  return parts;
}

/// What the machine has switches for.
Parts FindSwitched() {
  Parts parts;
  for (const auto& [kind, part] :
       {std::pair{RadioKind::Wireless, Part::Network}, {RadioKind::Bluetooth, Part::Bluetooth}})
    if (std::ranges::any_of(ListRadioSwitches(kind), &RadioSwitch::isOfMachine)) parts.insert(part);
  return parts;
}

/// A first line that tells machines apart, then a name on each line.
class FoundParts {
 public:
  explicit FoundParts(std::string nameOfMachine) : machine(std::move(nameOfMachine)) {
    std::istringstream lines(ReadText(file, kFileLimit));
    std::string line;
    if (!std::getline(lines, line) || line != machine) return;
    while (std::getline(lines, line))
      if (const auto part = PartOfName(line)) parts.insert(*part);
  }

  const Parts& Get() const { return parts; }

  void Add(const Parts& found) {
    if (std::ranges::includes(parts, found)) return;
    parts.insert(found.begin(), found.end());
    std::string text = machine + '\n';
    for (const Part part : parts) text += std::string(NameOf(part)) + '\n';
    os::ReplaceFile(file, text);
  }

 private:
  const fs::path file = os::DataFolder() / "fitted";
  const std::string machine;
  Parts parts;
};

/// What this and earlier calls have found.
Parts Remember(const FirmwareInfo& firmware, const Parts& found) {
  try {
    FoundParts earlier(firmware.productName + '|' + firmware.board.product);
    earlier.Add(found);
    return earlier.Get();
  } catch (const std::exception&) {
    COMMON_LOG_WARN(
        log4cxx::Logger::getLogger("orv.machine"),
        "what the machine is made of cannot be kept: " + common::DescribeCurrentException());
    return found;
  }
}

}  // namespace

std::vector<Part> FindNotFitted(const FirmwareInfo& firmware, const Inventory& info) {
  Parts fitted = Remember(firmware, FindThere(info));
  fitted.merge(FindNeeded());
  fitted.merge(FindSwitched());
  Parts missing;
  for (const PartRow& row : kParts)
    if (!fitted.contains(row.part)) missing.insert(row.part);
  return {missing.begin(), missing.end()};
}

}  // namespace machine
