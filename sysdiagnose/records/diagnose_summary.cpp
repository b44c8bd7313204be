#include "sysdiagnose/records/diagnose_summary.h"

#include <algorithm>

#include "common/protocol/message_ids.h"
#include "platform/duilib/culture/culture.h"

namespace orv::sysdiagnose {

namespace {

constexpr std::uint32_t kSummaryInterval = 600000;    // milliseconds
constexpr std::uint16_t kDescriptorInterval = 60000;  // milliseconds

constexpr const wchar_t* kAbnormalId = L"IDS_HARDWARE_DETECT_DOCTOR_ABNORMAL_NUM";
constexpr const wchar_t* kNormalId = L"IDS_HARDWARE_DETECT_DOCTOR_INDEX_DESCRIPTION_OK";

}  // namespace

void FillSummary(DiagnoseSummary& summary) {
  const auto& culture = *DuiLib::UICulture::GetInstance();
  summary.moduleId = protocol::kPluginModule;
  summary.detailText = culture.GetString(L"IDS_HARDWARE_DETECT_DOCTOR_DETAIL");
  summary.interval = kSummaryInterval;
  summary.abnormalCount = static_cast<std::uint32_t>(std::count_if(
      summary.items.begin(), summary.items.end(),
      [](const DetectListEntry& entry) { return entry.state == DisplayState::Abnormal; }));
  if (summary.abnormalCount > 0) {
    summary.headline = kAbnormalId;
    summary.resultText =
        culture.GetMultiVarStr(kAbnormalId, {std::to_wstring(summary.abnormalCount)});
  } else {
    summary.headline = kNormalId;
    summary.resultText = culture.GetString(L"IDS_HARDWARE_DETECT_DOCTOR_ABNORMAL_RESULT");
  }
}

protocol::ModuleDescriptor PluginDescriptor() {
  return {.mainIcon = L"file='drawable/hardware/index_hardware.png'",
          .moduleIcon = L"file='drawable/hardware/doctor_module.png'",
          .title = L"IDS_HARDWARE_DETECT",
          .moduleId = protocol::kPluginModule,
          .detectRequest = protocol::kDetectRequest,
          .repairRequest = protocol::kRepairRequest,
          .interval = kDescriptorInterval};
}

}  // namespace orv::sysdiagnose
