#include "cli/single_item.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <map>
#include <optional>
#include <string_view>

#include "cli/arguments.h"
#include "cli/commands.h"
#include "cli/json_line.h"
#include "cli/terminal_text.h"
#include "cli/texts.h"
#include "cli/verdict_line.h"
#include "common/text.h"
#include "platform/machine/current.h"
#include "platform/machine/interface/calls.h"
#include "platform/machine/interface/machine.h"
#include "sysdiagnose/catalogue/hardware_info_source.h"

namespace cli {

using namespace orv::sysdiagnose;

namespace {

constexpr std::uint32_t kPassed = 0;
constexpr std::uint32_t kHealthyDisk = 1;
constexpr std::uint32_t kUnreadableDisk = 2;

// Classes of the test library and the categories that their calls test.
struct ClassRow {
  std::string_view name;
  enmHardwareID category;
};
constexpr auto kClasses = std::to_array<ClassRow>({
    {"CCpuTest", enmHardwareID::Processor},
    {"CMemFaultDetect", enmHardwareID::Memory},
    {"CVideoCardDetect", enmHardwareID::GraphicsCard},
    {"CAudioDetect", enmHardwareID::Audio},
    {"WifiFaultDetect", enmHardwareID::NetworkCard},
    {"CBatteryDetect", enmHardwareID::Battery},
    {"CKeyBoardDetect", enmHardwareID::Keyboard},
    {"CBluetoothDetect", enmHardwareID::Bluetooth},
    {"CBiometricDetect", enmHardwareID::Fingerprint},
    {"CDiskFaultDetect", enmHardwareID::Disk},
});

struct Item {
  machine::TestCall call{};
  enmHardwareID category{};
  std::string_view name;  // as machine files have it, behind its class
};

Item ItemOf(const machine::TestCallRow& row) {
  const std::size_t colons = row.name.find("::");
  const auto owner = std::ranges::find(kClasses, row.name.substr(0, colons), &ClassRow::name);
  return {row.call, owner == kClasses.end() ? kNoHardware : owner->category,
          row.name.substr(colons + 2)};
}

Item FindItem(const std::string& word) {
  const std::size_t slash = word.find('/');
  const enmHardwareID category = ParseCategory(word.substr(0, slash));
  const std::string name = word.substr(slash + 1);
  std::string known;
  for (const machine::TestCallRow& row : machine::kTestCalls) {
    const Item item = ItemOf(row);
    if (item.category != category) continue;
    if (item.name == name) return item;
    known += (known.empty() ? "" : ", ") + std::string(item.name);
  }
  throw UsageError(known.empty() ? Message(L"NO_ITEMS", {word})
                                 : Message(L"UNKNOWN_ITEM", {word, known}));
}

Verdict VerdictOf(const Item& item, const machine::TestAnswer& answer) {
  if (item.category == enmHardwareID::Disk) {
    if (answer.code == kUnreadableDisk) return Verdict::NotTested;
    const bool isFaulty = std::ranges::any_of(answer.flags, [](auto flag) { return flag != 0; });
    return answer.code == kHealthyDisk && !isFaulty ? Verdict::Normal : Verdict::Abnormal;
  }
  const bool isNormal =
      item.category == enmHardwareID::Fingerprint ? answer.pass : answer.code == kPassed;
  if (!isNormal) return Verdict::Abnormal;
  return answer.notTested.empty() ? Verdict::Normal : Verdict::NotTested;
}

void Show(const Arguments& arguments, const Item& item, const machine::TestAnswer& answer,
          const std::wstring& disk) {
  const Verdict verdict = VerdictOf(item, answer);
  const std::wstring name = common::Utf8ToWide(item.name);
  if (arguments.json) {
    JsonLine line("item");
    line.Add("category", static_cast<std::int64_t>(item.category)).Add("item", name);
    if (!disk.empty()) line.Add("disk", disk);
    line.Add("code", std::int64_t{static_cast<std::int32_t>(answer.code)})
        .Add("verdict", std::string(NameOf(verdict)));
    if (!answer.text.empty()) line.Add("detail", answer.text);
    if (!answer.notTested.empty()) line.Add("notTested", answer.notTested);
    return;
  }
  std::puts(VerdictLine(disk.empty() ? name : name + L" " + disk, verdict).c_str());
  for (const std::wstring& said : {answer.text, answer.notTested})
    if (!said.empty()) std::puts(Indented(said, 4).c_str());
}

Verdict Make(const Arguments& arguments, const Item& item, std::size_t ordinal, int disk,
             const std::wstring& diskName) {
  const machine::TestAnswer answer = machine::Current().Test(item.call, ordinal, disk);
  Show(arguments, item, answer, diskName);
  return VerdictOf(item, answer);
}

// A SMART test is made of each disk of its kind.
Verdict MakeOfDisks(const Arguments& arguments, const Item& item) {
  HardwareSdk::CDisk& source = HardwareInfoSource::Instance().disk;
  Verdict worst = Verdict::NotTested;
  std::size_t ordinal = 0;
  for (int disk = 0; disk < source.GetPhysicDiskNumbers(); ++disk) {
    bool isSolidState = false;
    source.JudgeSSd(disk, isSolidState);
    if (isSolidState != (item.call == machine::TestCall::DiskSsdSmart)) continue;
    const Verdict verdict = Make(arguments, item, ordinal, disk, source.GetCaption(disk));
    worst = ordinal++ == 0 ? verdict : std::max(worst, verdict);
  }
  return worst;
}

}  // namespace

bool IsItemName(const std::string& word) {
  return word.find('/') != std::string::npos;
}

void RequireItem(const std::string& word) {
  FindItem(word);
}

int RunSingleItems(const Arguments& arguments) {
  Verdict worst = Verdict::NotThere;
  for (const std::string& word : arguments.singleItems) {
    const Item item = FindItem(word);
    const bool isOfDisks = item.category == enmHardwareID::Disk;
    worst = std::max(worst,
                     isOfDisks ? MakeOfDisks(arguments, item) : Make(arguments, item, 0, -1, {}));
  }
  if (worst == Verdict::Abnormal) return kSomethingAbnormal;
  return worst == Verdict::NotTested ? kNotTestedAsAsked : kAllNormal;
}

}  // namespace cli
