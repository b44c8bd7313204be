#include <algorithm>
#include <array>
#include <filesystem>
#include <limits>
#include <optional>
#include <string>
#include <vector>

#include "common/text.h"
#include "platform/machine/live/category.h"
#include "platform/machine/live/disk.h"
#include "platform/machine/live/linux/system_file.h"
#include "platform/os/paths.h"

namespace machine {
namespace {

namespace fs = std::filesystem;

constexpr std::uint32_t kNoBattery = 1;
constexpr std::uint32_t kLowVoltage = 2;
constexpr std::uint32_t kWorn = 3;

// What the firmware calls the least voltage of the design is the nominal one.
constexpr double kLowestShareOfDesignVoltage = 0.75;
constexpr double kLowestShareOfDesignCapacity = 0.6;

/// A battery of the machine. Voltages in microvolts; capacities as energy in microwatt-hours, or as
/// charge in microampere-hours where the battery counts so. What it does not tell is nothing.
struct Battery {
  std::wstring name;
  bool countsCharge = false;
  std::optional<std::uint64_t> designCapacity, fullCapacity;
  std::optional<std::uint64_t> designVoltage, voltage;
};

/// Firmware that does not know a value may give zero for it.
std::optional<std::uint64_t> ReadValue(const fs::path& file) {
  const std::optional<std::uint64_t> value = ReadNumber(file);
  return value == 0 ? std::nullopt : value;
}

bool IsBatteryOfMachine(const fs::path& folder) {
  return ReadLine(folder / "type") == "Battery" && ReadLine(folder / "scope") != "Device" &&
         ReadLine(folder / "present") != "0";
}

Battery ReadBattery(const fs::path& folder) {
  Battery battery;
  const std::string name =
      DiskCaption(ReadLine(folder / "manufacturer"), ReadLine(folder / "model_name"));
  battery.name = common::Utf8ToWide(name.empty() ? folder.filename().string() : name);
  battery.designCapacity = ReadValue(folder / "energy_full_design");
  battery.fullCapacity = ReadValue(folder / "energy_full");
  if (!battery.designCapacity && !battery.fullCapacity) {
    battery.designCapacity = ReadValue(folder / "charge_full_design");
    battery.fullCapacity = ReadValue(folder / "charge_full");
    battery.countsCharge = battery.designCapacity || battery.fullCapacity;
  }
  battery.designVoltage = ReadValue(folder / "voltage_min_design");
  battery.voltage = ReadValue(folder / "voltage_now");
  return battery;
}

std::vector<Battery> ListBatteries() {
  const fs::path parent = os::SystemPath("/sys/class/power_supply");
  std::vector<Battery> batteries;
  for (const std::string& name : ListNames(parent))
    if (IsBatteryOfMachine(parent / name)) batteries.push_back(ReadBattery(parent / name));
  return batteries;
}

/// In milliwatt-hours; 0 when it is not known.
double MilliwattHours(const Battery& battery, std::optional<std::uint64_t> capacity) {
  const auto value = static_cast<double>(capacity.value_or(0));
  if (!battery.countsCharge) return value / 1e3;
  return value * static_cast<double>(battery.designVoltage.value_or(0)) / 1e9;
}

std::uint64_t Sum(const std::vector<Battery>& batteries,
                  std::optional<std::uint64_t> Battery::*capacity) {
  double sum = 0;
  for (const Battery& battery : batteries) sum += MilliwattHours(battery, battery.*capacity);
  return static_cast<std::uint64_t>(
      std::min<double>(sum, std::numeric_limits<std::uint32_t>::max()));
}

void ReadBatteries(Devices& devices) {
  const std::vector<Battery> batteries = ListBatteries();
  std::wstring names;
  for (const Battery& battery : batteries) names += (names.empty() ? L"" : L" + ") + battery.name;
  Inventory& answers = devices.answers;
  answers.Set(InfoCall::BatteryName, names);
  answers.Set(InfoCall::BatteryDesignCapacity, Sum(batteries, &Battery::designCapacity));
  answers.Set(InfoCall::BatteryFullCapacity, Sum(batteries, &Battery::fullCapacity));
}

std::wstring Volts(std::uint64_t microvolts) {
  const std::wstring hundredths = std::to_wstring(microvolts / 10'000 % 100);
  return std::to_wstring(microvolts / 1'000'000) + (hundredths.size() < 2 ? L".0" : L".") +
         hundredths + L" V";
}

std::wstring Percent(double share) {
  return std::to_wstring(static_cast<int>(share * 100)) + L" %";
}

TestAnswer CheckVoltage(const Battery& battery) {
  if (!battery.voltage) return {.notTested = battery.name + L" does not tell its voltage"};
  if (!battery.designVoltage)
    return {.notTested = battery.name + L" does not tell the voltage that it was made for"};
  const std::wstring found = battery.name + L" has " + Volts(*battery.voltage) +
                             L" and was made for " + Volts(*battery.designVoltage);
  const double lowest = kLowestShareOfDesignVoltage * static_cast<double>(*battery.designVoltage);
  if (static_cast<double>(*battery.voltage) >= lowest) return {.text = found};
  return {.code = kLowVoltage, .text = found, .pass = false};
}

TestAnswer CheckLoss(const Battery& battery) {
  if (!battery.designCapacity || !battery.fullCapacity)
    return {.notTested = battery.name + L" does not tell what it held when new and holds now"};
  const double share =
      static_cast<double>(*battery.fullCapacity) / static_cast<double>(*battery.designCapacity);
  const std::wstring found =
      battery.name + L" holds " + Percent(std::min(share, 1.0)) + L" of what it was made for";
  if (share >= kLowestShareOfDesignCapacity) return {.text = found};
  return {.code = kWorn, .text = found, .pass = false};
}

void Append(std::wstring& sentence, const std::wstring& more) {
  if (!sentence.empty() && !more.empty()) sentence += L"; ";
  sentence += more;
}

/// The worst verdict of all batteries: a fault, else one that could not be tested.
TestAnswer CheckEach(TestAnswer (*check)(const Battery& battery)) {
  const std::vector<Battery> batteries = ListBatteries();
  if (batteries.empty()) return {.code = kNoBattery, .text = L"there is no battery", .pass = false};
  TestAnswer whole;
  for (const Battery& battery : batteries) {
    const TestAnswer one = check(battery);
    if (one.code != 0 && whole.code == 0) whole.text.clear();
    if (one.code != 0 || whole.code == 0) Append(whole.text, one.text);
    Append(whole.notTested, one.notTested);
    if (whole.code == 0) whole.code = one.code;
  }
  whole.pass = whole.code == 0;
  if (!whole.pass) whole.notTested.clear();
  return whole;
}

TestAnswer CheckPresence(const Battery& battery) {
  if (!battery.countsCharge || !battery.designVoltage) return {};
  return {.text = battery.name +
                  L" counts charge; its capacity was reckoned with the voltage that it was made "
                  L"for, " +
                  Volts(*battery.designVoltage)};
}

constexpr auto kTests = std::to_array<LiveTest>({
    {TestCall::BatteryDevice,
     [](const Devices&, TestCall, int) { return CheckEach(CheckPresence); }, CallLimit::Device},
    {TestCall::BatteryVoltage,
     [](const Devices&, TestCall, int) { return CheckEach(CheckVoltage); }, CallLimit::Device},
    {TestCall::BatteryLoss, [](const Devices&, TestCall, int) { return CheckEach(CheckLoss); },
     CallLimit::Device},
});

}  // namespace

Category BatteryCategory() {
  return {.read = ReadBatteries, .tests = kTests};
}

}  // namespace machine
