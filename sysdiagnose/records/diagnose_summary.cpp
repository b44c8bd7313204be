#include "sysdiagnose/records/diagnose_summary.h"

#include <algorithm>

#include "platform/duilib/culture.h"
#include "sysdiagnose/records/ipc_serialize.h"
#include "sysdiagnose/records/message_ids.h"

namespace orv::sysdiagnose {

// Found by their argument.
static std::size_t SizeOf(const DetectListEntry& entry) {
  using ipc::SizeOf;
  return SizeOf(entry.icon) + SizeOf(entry.caption) + SizeOf(entry.description) + 4 +
         SizeOf(entry.resultText) + 1 + 1 + 4;
}

static void Write(IIPCDataIO& io, const DetectListEntry& entry) {
  using ipc::Write;
  Write(io, entry.icon);
  Write(io, entry.caption);
  Write(io, entry.description);
  Write(io, static_cast<std::uint32_t>(entry.state));
  Write(io, entry.resultText);
  Write(io, entry.repairable);
  Write(io, entry.selected);
  Write(io, static_cast<std::uint32_t>(entry.category));
}

static void Read(IIPCDataIO& io, DetectListEntry& entry) {
  using ipc::Read;
  Read(io, entry.icon);
  Read(io, entry.caption);
  Read(io, entry.description);
  entry.state = static_cast<DisplayState>(io.ReadUInt32());
  Read(io, entry.resultText);
  entry.repairable = io.ReadByte() != 0;
  entry.selected = io.ReadByte() != 0;
  entry.category = static_cast<enmHardwareID>(io.ReadUInt32());
}

namespace {

constexpr std::uint32_t kSummaryInterval = 600000;    // milliseconds
constexpr std::uint16_t kDescriptorInterval = 60000;  // milliseconds

constexpr const wchar_t* kAbnormalId = L"IDS_HARDWARE_DETECT_DOCTOR_ABNORMAL_NUM";
constexpr const wchar_t* kNormalId = L"IDS_HARDWARE_DETECT_DOCTOR_INDEX_DESCRIPTION_OK";

}  // namespace

void FillSummary(DiagnoseSummary& summary) {
  const auto& culture = *DuiLib::UICulture::GetInstance();
  summary.moduleId = ipc::kPluginModule;
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

void WriteSummary(IIPCDataIO& io, const DiagnoseSummary& summary) {
  using ipc::Write;
  Write(io, ipc::kVersion);
  Write(io, summary.moduleId);
  Write(io, summary.headline);
  Write(io, summary.abnormalCount);
  Write(io, summary.resultText);
  Write(io, summary.detailText);
  Write(io, summary.items);
  Write(io, summary.interval);
  Write(io, summary.flag1);
  Write(io, summary.flag2);
}

void ReadSummary(IIPCDataIO& io, DiagnoseSummary& summary) {
  using ipc::Read;
  ipc::ReadVersion(io);
  Read(io, summary.moduleId);
  Read(io, summary.headline);
  Read(io, summary.abnormalCount);
  Read(io, summary.resultText);
  Read(io, summary.detailText);
  Read(io, summary.items);
  Read(io, summary.interval);
  Read(io, summary.flag1);
  Read(io, summary.flag2);
}

void WriteDescriptor(IIPCDataIO& io) {
  using ipc::Write;
  Write(io, ipc::kVersion);
  Write(io, std::wstring(L"file='drawable/hardware/index_hardware.png'"));
  Write(io, std::wstring(L"file='drawable/hardware/doctor_module.png'"));
  Write(io, std::wstring(L"IDS_HARDWARE_DETECT"));
  Write(io, ipc::kPluginModule);
  Write(io, ipc::kDetectRequest);
  Write(io, ipc::kRepairRequest);
  Write(io, kDescriptorInterval);
}

}  // namespace orv::sysdiagnose
