#include "sysdiagnose/ui/pages/detect_look.h"

#include <array>

#include "platform/duilib/culture/culture.h"

namespace orv::sysdiagnose {
namespace {

using DuiLib::UICulture;

constexpr const wchar_t* kOk = L"IDS_HARDWARE_DIAGNOSE_OK";

// By state.
constexpr auto kLooks = std::to_array<DetectLook>({
    {true, L"IDS_HARDWARE_DIAGNOSE_DOING", nullptr, nullptr, L"IDS_HARDWARE_DIAGNOSE_STOPPING"},
    {false, L"IDS_HARDWARE_DIAGNOSE_RESULT", kOk, nullptr, nullptr},
    {true, L"IDS_HARDWARE_DIAGNOSE_REPAIRING", nullptr, nullptr,
     L"IDS_HARDWARE_DIAGNOSE_REPAIR_STOPPING"},
    {false, L"IDS_HARDWARE_DIAGNOSE_REPAIR_SUCCESS", kOk, nullptr, nullptr},
    {false, L"IDS_HARDWARE_DIAGNOSE_REPAIR_FAIL", kOk, L"IDS_HARDWARE_DIAGNOSE_REPAIR_CONTINUE",
     nullptr},
});
static_assert(kLooks.size() == static_cast<std::size_t>(DetectState::RepairFailed) + 1);

constexpr DetectLook kRepairableResult{false, L"IDS_HARDWARE_DIAGNOSE_RESULT",
                                       L"IDS_HARDWARE_DIAGNOSE_REPAIR",
                                       L"IDS_HARDWARE_DETECT_BACK_MAIN", nullptr};

}  // namespace

const DetectLook& LookOf(DetectState state, bool canRepair) {
  if (state == DetectState::Result && canRepair) return kRepairableResult;
  return kLooks.at(static_cast<std::size_t>(state));
}

std::wstring TestingText(const std::wstring& category, const std::wstring& test) {
  return L"{f 105}{c #7F7F7F}" +
         UICulture::GetInstance()->GetString(L"IDS_HARDWARE_DIAGNOSE_ITEM") + L" " + category +
         test + L"{/c}{/f}";
}

std::wstring SummaryText(int abnormal) {
  UICulture& texts = *UICulture::GetInstance();
  if (abnormal < 1) return texts.GetString(L"IDS_HARDWARE_DIAGNOSE_RESULT_ABNORM_NOT_FOUND");
  return texts.GetMultiVarStr(L"IDS_HARDWARE_DIAGNOSE_ABNORM_RESULT_NUM",
                              {std::to_wstring(abnormal)});
}

}  // namespace orv::sysdiagnose
