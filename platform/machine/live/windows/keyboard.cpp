#include <array>
#include <optional>

#include "platform/machine/live/category.h"
#include "platform/machine/live/windows/filter_key_calls.h"

namespace machine {
namespace {

constexpr std::uint32_t kOn = 1;
constexpr std::uint32_t kStillOn = 1;

/// Nothing where the session has no such setting.
std::optional<FILTERKEYS> ReadSetting(SystemParametersCall call) {
  FILTERKEYS setting{};
  setting.cbSize = sizeof setting;
  if (call(SPI_GETFILTERKEYS, sizeof setting, &setting, 0) == 0) return std::nullopt;
  return setting;
}

bool IsOn(const std::optional<FILTERKEYS>& setting) {
  return setting && (setting->dwFlags & FKF_FILTERKEYSON) != 0;
}

}  // namespace

TestAnswer TestFilterKeys(SystemParametersCall call) {
  if (!IsOn(ReadSetting(call))) return {};
  return {kOn, L"short and repeated key strokes are dropped", false, {}};
}

RepairAnswer TurnFilterKeysOff(SystemParametersCall call) {
  std::optional<FILTERKEYS> setting = ReadSetting(call);
  if (!IsOn(setting)) return {};
  setting->dwFlags &= ~DWORD{FKF_FILTERKEYSON};
  const BOOL done =
      call(SPI_SETFILTERKEYS, sizeof *setting, &*setting, SPIF_UPDATEINIFILE | SPIF_SENDCHANGE);
  if (done != 0 && !IsOn(ReadSetting(call))) return {};
  return {kStillOn, false, L"the system keeps dropping key strokes"};
}

namespace {

constexpr auto kTests = std::to_array<LiveTest>({
    {TestCall::KeyboardFilterKey,
     [](const Devices&, TestCall, int) { return TestFilterKeys(&SystemParametersInfoW); }},
    {TestCall::KeyboardHotKey, [](const Devices&, TestCall, int) { return TestAnswer{}; }},
});

constexpr auto kRepairs = std::to_array<LiveRepair>({
    {RepairCall::FilterKey,
     [](std::uint32_t) { return TurnFilterKeysOff(&SystemParametersInfoW); }},
});

}  // namespace

Category KeyboardCategory() {
  return {.tests = kTests, .repairs = kRepairs};
}

}  // namespace machine
