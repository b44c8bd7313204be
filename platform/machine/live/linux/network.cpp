#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "common/text.h"
#include "platform/machine/live/category.h"
#include "platform/machine/live/linux/driver_binding.h"
#include "platform/machine/live/linux/mending.h"
#include "platform/machine/live/linux/network_adapters.h"
#include "platform/machine/live/linux/radio_switches.h"
#include "platform/machine/live/linux/wireless_signal.h"

namespace machine {
namespace {

constexpr std::uint32_t kNoAdapter = 1;
constexpr std::uint32_t kNoDriver = 2;
constexpr std::uint32_t kNoInterface = 3;
constexpr std::uint32_t kOffBySoftware = 4;
constexpr std::uint32_t kOffByHand = 5;
constexpr std::uint32_t kWeakSignal = 6;

// Below it connections break off and slow down.
constexpr int kWeakestDbm = -80;

std::wstring NameOf(const NetworkAdapter& adapter) {
  return common::Utf8ToWide(adapter.name.product);
}

void ReadNetwork(Devices& devices) {
  Inventory& answers = devices.answers;
  std::size_t index = 0;
  std::size_t wireless = 0;
  for (const NetworkAdapter& adapter : ListNetworkAdapters()) {
    answers.Set(InfoCall::AdapterCaption, NameOf(adapter), index);
    answers.Set(InfoCall::AdapterManufacturer, common::Utf8ToWide(adapter.name.maker), index);
    answers.Set(InfoCall::AdapterMacAddress, common::Utf8ToWide(adapter.address), index);
    if (adapter.isWireless)
      answers.Set(InfoCall::WirelessIndices, std::uint64_t{index}, wireless++);
    ++index;
  }
}

std::vector<NetworkAdapter> ListWireless() {
  std::vector<NetworkAdapter> adapters = ListNetworkAdapters();
  std::erase_if(adapters, [](const NetworkAdapter& adapter) { return !adapter.isWireless; });
  return adapters;
}

TestAnswer Untested(std::wstring reason) {
  TestAnswer answer;
  answer.notTested = std::move(reason);
  return answer;
}

TestAnswer TestWireless() {
  const std::vector<NetworkAdapter> adapters = ListWireless();
  if (adapters.empty()) return {kNoAdapter, L"there is no wireless adapter"};
  for (const NetworkAdapter& adapter : adapters)
    if (!adapter.driver.empty()) return {};
  return {kNoDriver, NameOf(adapters.front()) + L" has no driver"};
}

/// A wired or wireless one.
TestAnswer TestAdapter(const NetworkAdapter& adapter) {
  if (adapter.driver.empty()) return {kNoDriver, NameOf(adapter) + L" has no driver"};
  if (!adapter.interface.empty()) return {};
  return {kNoInterface, L"the driver " + common::Utf8ToWide(adapter.driver) + L" has not started " +
                            NameOf(adapter)};
}

TestAnswer TestAdapters() {
  const std::vector<NetworkAdapter> adapters = ListNetworkAdapters();
  if (adapters.empty()) return {kNoAdapter, L"there is no network adapter"};
  for (const NetworkAdapter& adapter : adapters)
    if (TestAnswer answer = TestAdapter(adapter); answer.code != 0) return answer;
  return {};
}

TestAnswer TestSwitches() {
  const std::vector<RadioSwitch> switches = ListRadioSwitches(RadioKind::Wireless);
  if (switches.empty()) return Untested(L"there is no switch for the wireless adapter");
  if (std::ranges::any_of(switches, &RadioSwitch::isOffByHand))
    return {kOffByHand, L"wireless is switched off by a key or slide of the machine"};
  if (std::ranges::any_of(switches, &RadioSwitch::isOffBySoftware))
    return {kOffBySoftware, L"wireless is switched off by software"};
  return {};
}

/// The weakest signal of those that are connected.
TestAnswer TestSignal() {
  TestAnswer worst = Untested(L"wireless is not connected to a network");
  for (const NetworkAdapter& adapter : ListWireless()) {
    const std::optional<int> level = WirelessSignal(adapter.interface);
    if (!level) continue;
    worst.notTested.clear();
    if (*level >= kWeakestDbm) continue;
    worst.code = kWeakSignal;
    worst.text = L"the signal of " + std::to_wstring(*level) + L" dBm is weak";
  }
  return worst;
}

/// Makes the adapters work that have no driver, or a driver that has not started them.
RepairAnswer BindAdapters(const std::vector<NetworkAdapter>& adapters, TestAnswer (*test)()) {
  for (const NetworkAdapter& adapter : adapters) {
    if (TestAdapter(adapter).code == 0) continue;
    if (std::wstring fault = BindAgain(adapter.device); !fault.empty())
      return FailedRepair(std::move(fault));
  }
  if (adapters.empty()) return FailedRepair(test().text);
  return TestAgain(test);
}

RepairAnswer RepairDriver(std::uint32_t) {
  return BindAdapters(ListWireless(), TestWireless);
}

RepairAnswer RepairAdapters() {
  return BindAdapters(ListNetworkAdapters(), TestAdapters);
}

RepairAnswer RepairSwitch() {
  if (std::wstring fault = UnblockRadios(RadioKind::Wireless); !fault.empty())
    return FailedRepair(std::move(fault));
  return TestAgain(TestSwitches);
}

RepairAnswer RefuseHandSwitch() {
  return FailedRepair(L"the key or slide of the machine must be used to switch wireless on");
}

RepairAnswer RefuseSignal() {
  return FailedRepair(L"a weak signal gets stronger only closer to the access point");
}

struct RepairRow {
  std::uint32_t code;
  RepairAnswer (*repair)();
};
constexpr auto kProblems = std::to_array<RepairRow>({
    {kNoAdapter, RepairAdapters},
    {kNoDriver, RepairAdapters},
    {kNoInterface, RepairAdapters},
    {kOffBySoftware, RepairSwitch},
    {kOffByHand, RefuseHandSwitch},
    {kWeakSignal, RefuseSignal},
});

RepairAnswer RepairProblem(std::uint32_t code) {
  const auto row = std::ranges::find(kProblems, code, &RepairRow::code);
  if (row == kProblems.end()) return FailedRepair(L"there is no repair for this problem");
  return row->repair();
}

template <TestAnswer (*test)()>
TestAnswer Run(const Devices&, TestCall, int) {
  return test();
}

constexpr auto kTests = std::to_array<LiveTest>({
    {TestCall::WifiDevice, Run<TestWireless>},
    {TestCall::WifiNetworkCard, Run<TestAdapters>},
    {TestCall::WifiSwitch, Run<TestSwitches>},
    {TestCall::WifiSignal, Run<TestSignal>},
});

constexpr auto kRepairs = std::to_array<LiveRepair>({
    {RepairCall::WifiDriver, RepairDriver},
    {RepairCall::WifiProblem, RepairProblem},
});

}  // namespace

Category NetworkCategory() {
  return {.read = ReadNetwork, .tests = kTests, .repairs = kRepairs};
}

}  // namespace machine
