#include "sysdiagnose/engine/hardware_repair_helper.h"

#include <cwchar>
#include <utility>

namespace orv::sysdiagnose {

using namespace HardwareDetect;

HardwareRepairHelper& HardwareRepairHelper::Instance() {
  static HardwareRepairHelper helper;
  return helper;
}

// Calls the library with the parameter as the failed item's code, under the lock of its devices.
template <typename Function>
HardwareRepairHelper::BoundCommand HardwareRepairHelper::Bind(Lock lock, Function repair) {
  return [this, lock, repair](Result& result, const std::wstring& parameter) {
    const std::lock_guard guard(locks[lock]);
    result = repair(static_cast<std::uint32_t>(std::wcstoll(parameter.c_str(), nullptr, 10)));
  };
}

HardwareRepairHelper::HardwareRepairHelper()
    : commands{
          {L"RepairWifiDriver",
           Bind(Wireless,
                [](std::uint32_t) { return WifiFaultDetect::GetInstance()->RepairWifiDriver(); })},
          {L"RepairWifiProblem", Bind(Wireless,
                                      [](std::uint32_t code) {
                                        return WifiFaultDetect::GetInstance()->RepairWifiProblem(
                                            code);
                                      })},
          {L"RepairHotkey",
           Bind(Keyboard,
                [this](std::uint32_t) { return keyboard.RepairHotkeyByReStartSevice(); })},
          {L"RepairFilterKey",
           Bind(Keyboard, [this](std::uint32_t) { return keyboard.CloseFilterKey(); })},
          {L"RepairAudio", Bind(Audio,
                                [](std::uint32_t code) {
                                  return CAudioDetect::GetInstance()->RepairAudioProblem(code);
                                })},
          {L"RepairBluetooth",
           Bind(Bluetooth,
                [this](std::uint32_t code) { return bluetooth.RepairBTProblems(code); })},
          {L"RepairVideoCard",
           Bind(Graphics,
                [this](std::uint32_t code) { return videoCard.RepairVIDEOCARDProblems(code); })},
          {L"RepairFingerprint",
           Bind(Fingerprint,
                [this](std::uint32_t code) { return biometric.RepairByErrorCode(code); })},
      } {}

void HardwareRepairHelper::Repair(std::wstring& command, std::wstring& parameter, Result& result) {
  const std::wstring name = std::exchange(command, {});
  const std::wstring code = std::exchange(parameter, {});
  const auto found = commands.find(name);
  if (found != commands.end()) found->second(result, code);
}

}  // namespace orv::sysdiagnose
