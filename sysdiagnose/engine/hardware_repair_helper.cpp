#include "sysdiagnose/engine/hardware_repair_helper.h"

#include <cwchar>
#include <utility>

#include "sysdiagnose/engine/repair_commands.h"

namespace orv::sysdiagnose {

using namespace HardwareDetect;

HardwareRepairHelper& HardwareRepairHelper::Instance() {
  static HardwareRepairHelper helper;
  return helper;
}

struct HardwareRepairHelper::CommandRow {
  RepairCommand command;
  Lock lock;
  Result (*repair)(HardwareRepairHelper& helper, std::uint32_t code);
};

namespace {

template <typename Row, std::size_t Size>
constexpr bool IsEveryCommand(const std::array<Row, Size>& rows) {
  for (std::size_t i = 0; i < Size; ++i)
    if (rows[i].command != static_cast<RepairCommand>(i + 1)) return false;  // behind None
  return Size + 1 == kRepairCommandNames.size();
}

}  // namespace

// Each calls the library with the parameter as the failed item's code, under the lock of its
// devices.
HardwareRepairHelper::HardwareRepairHelper() {
  using Helper = HardwareRepairHelper;
  using Code = std::uint32_t;
  // clang-format off
  static constexpr auto kRows = std::to_array<CommandRow>({
      {RepairCommand::WifiDriver, Wireless, [](Helper&, Code) { return WifiFaultDetect::GetInstance()->RepairWifiDriver(); }},
      {RepairCommand::WifiProblem, Wireless, [](Helper&, Code code) { return WifiFaultDetect::GetInstance()->RepairWifiProblem(code); }},
      {RepairCommand::Hotkey, Keyboard, [](Helper& helper, Code) { return helper.keyboard.RepairHotkeyByReStartSevice(); }},
      {RepairCommand::FilterKey, Keyboard, [](Helper& helper, Code) { return helper.keyboard.CloseFilterKey(); }},
      {RepairCommand::Audio, Audio, [](Helper&, Code code) { return CAudioDetect::GetInstance()->RepairAudioProblem(code); }},
      {RepairCommand::Bluetooth, Bluetooth, [](Helper& helper, Code code) { return helper.bluetooth.RepairBTProblems(code); }},
      {RepairCommand::VideoCard, Graphics, [](Helper& helper, Code code) { return helper.videoCard.RepairVIDEOCARDProblems(code); }},
      {RepairCommand::Fingerprint, Fingerprint, [](Helper& helper, Code code) { return helper.biometric.RepairByErrorCode(code); }},
  });
  // clang-format on
  static_assert(IsEveryCommand(kRows));
  for (const CommandRow& row : kRows) {
    commands[NameOf(row.command)] = [this, &row](Result& result, const std::wstring& parameter) {
      const std::lock_guard guard(locks[row.lock]);
      result = row.repair(*this, static_cast<Code>(std::wcstoll(parameter.c_str(), nullptr, 10)));
    };
  }
}

void HardwareRepairHelper::Repair(std::wstring& command, std::wstring& parameter, Result& result) {
  const std::wstring name = std::exchange(command, {});
  const std::wstring code = std::exchange(parameter, {});
  const auto found = commands.find(name);
  if (found != commands.end()) found->second(result, code);
}

}  // namespace orv::sysdiagnose
