#include "sysdiagnose/engine/smart_evaluation.h"

#include <array>
#include <span>

#include "sysdiagnose/catalogue/hardware_info_source.h"
#include "sysdiagnose/engine/hint_text.h"
#include "sysdiagnose/engine/test_items.h"

namespace orv::sysdiagnose {
namespace {

using namespace HardwareDetect;

// Captions of the SMART attributes, named by attribute number, in the order of the library's flags.
constexpr auto kHddAttributes = std::to_array<const wchar_t*>(
    {L"DISK_01", L"DISK_03", L"DISK_04", L"DISK_05", L"DISK_07", L"DISK_09",
     L"DISK_0A", L"DISK_0C", L"DISK_B7", L"DISK_B8", L"DISK_BB", L"DISK_BC",
     L"DISK_BD", L"DISK_BE", L"DISK_BF", L"DISK_C0", L"DISK_C1", L"DISK_C2",
     L"DISK_C5", L"DISK_C6", L"DISK_C7", L"DISK_F0", L"DISK_F1", L"DISK_F2"});
static_assert(kHddAttributes.size() == sizeof(tagHHD_DISK_SMART_INFO));

constexpr auto kSsdAttributes = std::to_array<const wchar_t*>(
    {L"DISK_01", L"DISK_05", L"DISK_09", L"DISK_0C", L"DISK_AA", L"DISK_AB", L"DISK_AC", L"DISK_AD",
     L"DISK_AE", L"DISK_AF", L"DISK_B0", L"DISK_B2", L"DISK_B3", L"DISK_B4", L"DISK_B5", L"DISK_B6",
     L"DISK_B7", L"DISK_C3", L"DISK_E8", L"DISK_E9", L"DISK_F1", L"DISK_F2"});
static_assert(kSsdAttributes.size() == sizeof(tagSSD_DISK_SMART_INFO));

void AppendRecords(std::span<const wchar_t* const> attributes, std::span<const std::uint8_t> flags,
                   std::vector<tagDetectItemDetail>& records) {
  tagDetectItemDetail record;
  for (std::size_t i = 0; i < attributes.size(); ++i) {
    record.caption = CaptionText(attributes[i]);
    record.normal = flags[i] == 0;
    record.hint = HintText(flags[i]);
    records.push_back(record);
  }
}

std::string SummaryLine(std::span<const std::uint8_t> flags, std::uint32_t result) {
  std::string line;
  for (const std::uint8_t flag : flags) line += std::to_string(flag) + ",";
  return line + std::to_string(result - 1);  // 0 wraps to 4294967295
}

template <typename Flags>
std::uint32_t EvaluateSmart(CDiskFaultDetect& diagnose,
                            std::uint32_t (CDiskFaultDetect::*check)(const std::wstring&, Flags&,
                                                                     int&),
                            std::span<const wchar_t* const> attributes, int diskIndex,
                            std::vector<tagDetectItemDetail>& records, std::string& csv) {
  const std::wstring revision = HardwareInfoSource::Instance().disk.GetFirmwareRevision(diskIndex);
  Flags flags{};
  int reserved = 1;
  const std::uint32_t result = (diagnose.*check)(revision, flags, reserved);
  AppendRecords(attributes, flags.flags, records);
  csv = SummaryLine(flags.flags, result);
  return result;
}

}  // namespace

std::uint32_t EvaluateHddSmart(CDiskFaultDetect& diagnose, int diskIndex,
                               std::vector<tagDetectItemDetail>& records, std::string& csv) {
  return EvaluateSmart(diagnose, &CDiskFaultDetect::CheckHhdSmartResult, kHddAttributes, diskIndex,
                       records, csv);
}

std::uint32_t EvaluateSsdSmart(CDiskFaultDetect& diagnose, int diskIndex,
                               std::vector<tagDetectItemDetail>& records, std::string& csv) {
  return EvaluateSmart(diagnose, &CDiskFaultDetect::CheckSsdSmartResult, kSsdAttributes, diskIndex,
                       records, csv);
}

}  // namespace orv::sysdiagnose
