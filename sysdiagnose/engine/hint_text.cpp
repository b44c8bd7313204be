#include "sysdiagnose/engine/hint_text.h"

#include <array>

#include "platform/duilib/culture/culture.h"

namespace orv::sysdiagnose {
namespace {

// The message of code -1 first.
constexpr auto kHints = std::to_array<const wchar_t*>({
    L"IDS_HARDWARE_DIAGNOSE_CHECK_DRIVE",
    L"IDS_HARDWARE_DIAGNOSE_BATTERY_UNKNOWN",
    L"IDS_HARDWARE_DIAGNOSE_WIFI_WARN",
    L"IDS_HARDWARE_DIAGNOSE_BATTERY_LOWVOLT",
    L"IDS_HARDWARE_DIAGNOSE_LOG_ERROR",
    L"IDS_HARDWARE_DIAGNOSE_FILTER_OPEN",
    L"IDS_HARDWARE_DIAGNOSE_ERROR_HOTKEY",
    L"IDS_HARDWARE_DIAGNOSE_FN_OPEN",
});
constexpr auto kLowestCode = -static_cast<std::int32_t>(kHints.size());

}  // namespace

std::wstring HintText(std::int32_t code) {
  if (code < kLowestCode || code > -1) return {};
  return DuiLib::UICulture::GetInstance()->GetString(kHints[static_cast<std::size_t>(-1 - code)]);
}

}  // namespace orv::sysdiagnose
