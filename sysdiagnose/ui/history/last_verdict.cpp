#include "sysdiagnose/ui/history/last_verdict.h"

#include "platform/duilib/culture/culture.h"

namespace orv::sysdiagnose {

std::wstring LastVerdict(const std::vector<HistoryRecord>& runs) {
  const DuiLib::UICulture& culture = *DuiLib::UICulture::GetInstance();
  if (runs.empty()) return culture.GetString(L"IDS_HARDWARE_DETECT_MAIN_DETECT_NEW");
  const std::int32_t abnormal = runs.front().failCount;
  if (abnormal <= 0) return culture.GetString(L"IDS_HARDWARE_DETECT_MAIN_LAST_NORM");
  return culture.GetMultiVarStr(L"IDS_HARDWARE_DETECT_MAIN_LAST_ABNORM",
                                {std::to_wstring(abnormal)});
}

std::wstring UnreadableHistory() {
  return DuiLib::UICulture::GetInstance()->GetString(L"IDS_HARDWARE_DETECT_MAIN_UNREADABLE");
}

}  // namespace orv::sysdiagnose
