#include "platform/machine/live/smart_report.h"

#include <rapidjson/document.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "common/text.h"

namespace machine {
namespace {

using Value = rapidjson::Value;

constexpr std::uint32_t kFailing = 0;
constexpr std::uint32_t kHealthy = 1;
constexpr std::uint32_t kUnreadable = 2;

constexpr std::uint8_t kReallocatedSectors = 0x05;
constexpr std::uint8_t kAvailableSpare = 0xE8;
constexpr std::uint8_t kMediaWear = 0xE9;

// Bits of an NVMe drive's critical warning.
struct Warning {
  std::uint64_t bit;
  std::uint8_t attribute;
  const wchar_t* words;
};
constexpr auto kWarnings = std::to_array<Warning>({
    {0x01, kAvailableSpare, L"spare blocks below their threshold"},
    {0x02, kMediaWear, L"temperature out of its limits"},
    {0x04, kMediaWear, L"reliability degraded"},
    {0x08, kMediaWear, L"read only"},
    {0x10, kMediaWear, L"backup of its volatile memory failed"},
    {0x20, kMediaWear, L"persistent memory unreliable"},
});

// The additional sense of a SCSI drive that predicts that it will run out of spare blocks.
constexpr std::uint64_t kFailurePredicted = 0x5D;
constexpr std::uint64_t kSpareExhaustion = 0x03;

// Attribute numbers in flag order.
constexpr std::array<std::uint8_t, kHddFlagCount> kHddAttributes = {
    0x01, 0x03, 0x04, 0x05, 0x07, 0x09, 0x0A, 0x0C, 0xB7, 0xB8, 0xBB, 0xBC,
    0xBD, 0xBE, 0xBF, 0xC0, 0xC1, 0xC2, 0xC5, 0xC6, 0xC7, 0xF0, 0xF1, 0xF2};
constexpr std::array<std::uint8_t, kSsdFlagCount> kSsdAttributes = {
    0x01, 0x05, 0x09, 0x0C, 0xAA, 0xAB, 0xAC, 0xAD, 0xAE, 0xAF, 0xB0,
    0xB2, 0xB3, 0xB4, 0xB5, 0xB6, 0xB7, 0xC3, 0xE8, 0xE9, 0xF1, 0xF2};

std::span<const std::uint8_t> AttributesOf(TestCall test) {
  if (test == TestCall::DiskHddSmart) return kHddAttributes;
  return kSsdAttributes;
}

/// A member of an object, or null.
const Value* Member(const Value* object, const char* name) {
  if (object == nullptr || !object->IsObject()) return nullptr;
  const auto member = object->FindMember(name);
  return member == object->MemberEnd() ? nullptr : &member->value;
}

/// A whole number that is not negative; `missing` when the member is no such number.
std::uint64_t Number(const Value& object, const char* name, std::uint64_t missing) {
  const Value* const value = Member(&object, name);
  return value != nullptr && value->IsUint64() ? value->GetUint64() : missing;
}

/// A text member, empty when there is none.
std::string_view Text(const Value& object, const char* name) {
  const Value* const value = Member(&object, name);
  if (value == nullptr || !value->IsString()) return {};
  return {value->GetString(), value->GetStringLength()};
}

bool IsBelowThreshold(const Value& attribute) {
  const std::uint64_t threshold = Number(attribute, "thresh", 0);
  return threshold > 0 && Number(attribute, "value", threshold + 1) <= threshold;
}

// What a report says of the disk: the flags, and why the drive says that it fails.
class Findings {
 public:
  Findings(TestCall test, std::vector<std::uint8_t>& target)
      : attributes(AttributesOf(test)), flags(target) {}

  /// An attribute out of its limits; one that the library has no flag for is passed over.
  bool Raise(std::uint64_t attribute) {
    const auto found = std::ranges::find(attributes, attribute);
    if (found == attributes.end()) return false;
    flags[static_cast<std::size_t>(found - attributes.begin())] = 1;
    return true;
  }

  /// A reason why the drive fails.
  void AddReason(std::uint64_t attribute, const std::wstring& words) {
    if (Raise(attribute)) hasFlag = true;
    if (!words.empty()) reasons += (reasons.empty() ? L": " : L", ") + words;
  }

  /// What is said of a failing drive. One whose reasons have no flag gets that of its kind.
  std::wstring FailingText() {
    if (!hasFlag && !Raise(kMediaWear)) Raise(kReallocatedSectors);
    return L"the disk reports that it is failing" + reasons;
  }

 private:
  std::span<const std::uint8_t> attributes;
  std::vector<std::uint8_t>& flags;
  std::wstring reasons;
  bool hasFlag = false;
};

void ReadAtaAttributes(const Value& report, Findings& findings) {
  const Value* const table = Member(Member(&report, "ata_smart_attributes"), "table");
  if (table == nullptr || !table->IsArray()) return;
  for (const Value& attribute : table->GetArray()) {
    if (!attribute.IsObject()) continue;
    const std::uint64_t id = Number(attribute, "id", 0);
    const std::string_view failed = Text(attribute, "when_failed");
    if (failed == "now" || IsBelowThreshold(attribute))
      findings.AddReason(id, common::Utf8ToWide(Text(attribute, "name")));
    else if (!failed.empty())
      findings.Raise(id);
  }
}

std::uint64_t CriticalWarning(const Value& report) {
  const Value* const log = Member(&report, "nvme_smart_health_information_log");
  return log == nullptr ? 0 : Number(*log, "critical_warning", 0);
}

void ReadNvmeLog(const Value& report, Findings& findings) {
  const Value* const log = Member(&report, "nvme_smart_health_information_log");
  if (log == nullptr || !log->IsObject()) return;
  const std::uint64_t threshold = Number(*log, "available_spare_threshold", 0);
  if (Number(*log, "available_spare", threshold) < threshold) findings.Raise(kAvailableSpare);
  if (Number(*log, "percentage_used", 0) >= 100) findings.Raise(kMediaWear);
  const std::uint64_t warning = CriticalWarning(report);
  for (const auto& [bit, attribute, words] : kWarnings)
    if ((warning & bit) != 0) findings.AddReason(attribute, words);
}

void ReadScsiPrediction(const Value& report, Findings& findings) {
  const Value* const sense = Member(Member(&report, "smart_status"), "scsi");
  if (sense == nullptr || !sense->IsObject()) return;
  const bool isSpare = Number(*sense, "asc", 0) == kFailurePredicted &&
                       Number(*sense, "ascq", 0) == kSpareExhaustion;
  findings.AddReason(isSpare ? kAvailableSpare : kMediaWear,
                     common::Utf8ToWide(Text(*sense, "ie_string")));
}

/// What the drive says of itself; nothing when it does not say.
std::optional<bool> IsFailing(const Value& report) {
  if (CriticalWarning(report) != 0) return true;
  const Value* const passed = Member(Member(&report, "smart_status"), "passed");
  if (passed == nullptr || !passed->IsBool()) return std::nullopt;
  return !passed->GetBool();
}

/// The errors that the tool tells of, such as a missing right.
std::wstring WhyNoVerdict(const Value& report) {
  std::wstring reasons;
  const Value* const messages = Member(Member(&report, "smartctl"), "messages");
  if (messages != nullptr && messages->IsArray()) {
    for (const Value& message : messages->GetArray()) {
      if (!message.IsObject() || Text(message, "severity") != "error") continue;
      reasons += (reasons.empty() ? L"" : L", ") + common::Utf8ToWide(Text(message, "string"));
    }
  }
  return reasons.empty() ? L"the disk does not tell its health" : reasons;
}

}  // namespace

TestAnswer UnreadableDisk(TestCall test, const std::wstring& reason) {
  TestAnswer answer;
  answer.code = kUnreadable;
  answer.notTested = reason;
  answer.flags.assign(AttributesOf(test).size(), 0);
  return answer;
}

TestAnswer ParseSmartReport(TestCall test, std::string_view json) {
  if (json.empty()) return UnreadableDisk(test, L"smartctl says nothing");
  rapidjson::Document report;
  report.Parse<rapidjson::kParseIterativeFlag>(json.data(), json.size());
  if (report.HasParseError()) return UnreadableDisk(test, L"smartctl gives no report");
  const std::optional<bool> isFailing = IsFailing(report);
  if (!isFailing) return UnreadableDisk(test, WhyNoVerdict(report));

  TestAnswer answer;
  answer.flags.assign(AttributesOf(test).size(), 0);
  Findings findings(test, answer.flags);
  ReadAtaAttributes(report, findings);
  ReadNvmeLog(report, findings);
  ReadScsiPrediction(report, findings);
  answer.code = *isFailing ? kFailing : kHealthy;
  answer.text = *isFailing ? findings.FailingText() : L"";
  return answer;
}

}  // namespace machine
