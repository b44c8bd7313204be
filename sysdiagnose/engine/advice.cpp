#include "sysdiagnose/engine/advice.h"

#include <algorithm>
#include <array>

#include "platform/duilib/culture/culture.h"
#include "sysdiagnose/engine/test_items.h"

namespace orv::sysdiagnose {
namespace {

using Category = enmHardwareID;

constexpr std::int32_t kAnyCode = 0;  // no abnormal item that has a code has this one

// Codes by which the live machine tells why a device fails, where it knows.
constexpr std::int32_t kNoDevice = 1;
constexpr std::int32_t kNoDriver = 2;
constexpr std::int32_t kWirelessOffBySoftware = 4;
constexpr std::int32_t kWirelessOffByHand = 5;
constexpr std::int32_t kBluetoothOffBySoftware = 3;
constexpr std::int32_t kBluetoothOffByHand = 4;
constexpr std::int32_t kBluetoothOffInService = 5;

struct AdviceRow {
  Category category;
  const wchar_t* caption;  // as test items have it; null: any item; empty: none
  std::int32_t code;
  const wchar_t* advice;  // string id without its prefix
};

// The first row that fits gives the advice.
// clang-format off
constexpr auto kAdvice = std::to_array<AdviceRow>({
    {Category::Memory, nullptr, kAnyCode, L"MEMORY"},
    {Category::Disk, L"DISK_01", kAnyCode, L"BAD_SECTORS"},
    {Category::Disk, L"DISK_05", kAnyCode, L"BAD_SECTORS"},
    {Category::Disk, L"DISK_B8", kAnyCode, L"BAD_SECTORS"},
    {Category::Disk, L"DISK_BB", kAnyCode, L"BAD_SECTORS"},
    {Category::Disk, L"DISK_C3", kAnyCode, L"BAD_SECTORS"},
    {Category::Disk, L"DISK_C5", kAnyCode, L"BAD_SECTORS"},
    {Category::Disk, L"DISK_C6", kAnyCode, L"BAD_SECTORS"},
    {Category::Disk, L"DISK_AA", kAnyCode, L"DISK_WEAR"},
    {Category::Disk, L"DISK_AB", kAnyCode, L"DISK_WEAR"},
    {Category::Disk, L"DISK_AC", kAnyCode, L"DISK_WEAR"},
    {Category::Disk, L"DISK_AD", kAnyCode, L"DISK_WEAR"},
    {Category::Disk, L"DISK_AF", kAnyCode, L"DISK_WEAR"},
    {Category::Disk, L"DISK_B0", kAnyCode, L"DISK_WEAR"},
    {Category::Disk, L"DISK_B2", kAnyCode, L"DISK_WEAR"},
    {Category::Disk, L"DISK_B3", kAnyCode, L"DISK_WEAR"},
    {Category::Disk, L"DISK_B4", kAnyCode, L"DISK_WEAR"},
    {Category::Disk, L"DISK_B5", kAnyCode, L"DISK_WEAR"},
    {Category::Disk, L"DISK_B6", kAnyCode, L"DISK_WEAR"},
    {Category::Disk, L"DISK_E8", kAnyCode, L"DISK_WEAR"},
    {Category::Disk, L"DISK_E9", kAnyCode, L"DISK_WEAR"},
    {Category::Disk, L"DISK_BE", kAnyCode, L"DISK_TEMPERATURE"},
    {Category::Disk, L"DISK_C2", kAnyCode, L"DISK_TEMPERATURE"},
    {Category::Disk, L"DISK_B7", kAnyCode, L"DISK_CONNECTION"},
    {Category::Disk, L"DISK_BC", kAnyCode, L"DISK_CONNECTION"},
    {Category::Disk, L"DISK_C7", kAnyCode, L"DISK_CONNECTION"},
    {Category::Disk, L"DISK_AE", kAnyCode, L"DISK_POWER"},
    {Category::Disk, L"DISK_C0", kAnyCode, L"DISK_POWER"},
    {Category::Disk, L"DISK_03", kAnyCode, L"DISK_MECHANICS"},
    {Category::Disk, L"DISK_07", kAnyCode, L"DISK_MECHANICS"},
    {Category::Disk, L"DISK_0A", kAnyCode, L"DISK_MECHANICS"},
    {Category::Disk, L"DISK_BD", kAnyCode, L"DISK_MECHANICS"},
    {Category::Disk, L"DISK_BF", kAnyCode, L"DISK_MECHANICS"},
    {Category::Disk, nullptr, kAnyCode, L"DISK_AGE"},  // hours, cycles and amounts
    {Category::GraphicsCard, nullptr, kNoDevice, L"NO_DEVICE"},
    {Category::GraphicsCard, nullptr, kNoDriver, L"NO_DRIVER"},
    {Category::Audio, L"AUDIO_LOOPBACK", kAnyCode, L"LOOPBACK"},
    {Category::Audio, nullptr, kNoDevice, L"NO_DEVICE"},
    {Category::Audio, nullptr, kNoDriver, L"NO_DRIVER"},
    {Category::NetworkCard, nullptr, kWirelessOffBySoftware, L"DISABLED_DEVICE"},
    {Category::NetworkCard, L"WIFI_SWITCH", kAnyCode, L"RADIO_OFF"},
    {Category::NetworkCard, L"NETCARD_SIGNAL", kAnyCode, L"SIGNAL"},
    {Category::NetworkCard, nullptr, kNoDevice, L"NO_DEVICE"},
    {Category::NetworkCard, nullptr, kWirelessOffByHand, L"RADIO_OFF"},
    {Category::NetworkCard, nullptr, kNoDriver, L"NO_DRIVER"},
    {Category::Bluetooth, nullptr, kBluetoothOffBySoftware, L"DISABLED_DEVICE"},
    {Category::Bluetooth, nullptr, kBluetoothOffInService, L"DISABLED_DEVICE"},
    {Category::Bluetooth, nullptr, kBluetoothOffByHand, L"RADIO_OFF"},
    {Category::Bluetooth, nullptr, kNoDevice, L"NO_DEVICE"},
    {Category::Bluetooth, nullptr, kNoDriver, L"NO_DRIVER"},
    {Category::Fingerprint, nullptr, kNoDevice, L"NO_DEVICE"},
    {Category::Battery, L"", kAnyCode, L"BATTERY_WEAR"},
});
// clang-format on

bool Fits(const AdviceRow& row, Category category, const std::wstring& caption, std::int32_t code) {
  if (row.category != category || (row.code != kAnyCode && row.code != code)) return false;
  if (row.caption == nullptr) return !caption.empty();
  if (*row.caption == L'\0') return caption.empty();
  return caption == CaptionText(row.caption);
}

}  // namespace

std::wstring AdviceText(enmHardwareID category, const std::wstring& caption, std::int32_t code) {
  const auto row = std::ranges::find_if(
      kAdvice, [&](const AdviceRow& each) { return Fits(each, category, caption, code); });
  if (row == kAdvice.end()) return {};
  return DuiLib::UICulture::GetInstance()->GetString(std::wstring(L"IDS_HARDWARE_ADVICE_") +
                                                     row->advice);
}

std::wstring HintForOwner(enmHardwareID category, const std::wstring& hint) {
  return category == Category::Memory ? std::wstring() : hint;
}

std::wstring JoinedSentences(const std::wstring& first, const std::wstring& second) {
  if (first.empty() || second.empty()) return first + second;
  return DuiLib::UICulture::GetInstance()->GetMultiVarStr(L"IDS_HARDWARE_ADVICE_SENTENCES",
                                                          {first, second});
}

}  // namespace orv::sysdiagnose
