#include "platform/machine/live/smart_report.h"

#include <rapidjson/document.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>
#include <string>

namespace machine {
namespace {

using Value = rapidjson::Value;

constexpr std::uint32_t kFailing = 0;
constexpr std::uint32_t kHealthy = 1;
constexpr std::uint32_t kUnreadable = 2;

constexpr std::uint8_t kAvailableSpare = 0xE8;
constexpr std::uint8_t kEnduranceUsed = 0xE9;

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

bool IsOutOfLimits(const Value& attribute) {
  const Value* const failed = Member(&attribute, "when_failed");
  if (failed != nullptr && failed->IsString() && failed->GetStringLength() != 0) return true;
  const std::uint64_t threshold = Number(attribute, "thresh", 0);
  return threshold > 0 && Number(attribute, "value", threshold + 1) <= threshold;
}

class FlagWriter {
 public:
  FlagWriter(TestCall test, std::vector<std::uint8_t>& target)
      : attributes(AttributesOf(test)), flags(target) {}

  void Raise(std::uint64_t attribute) {
    const auto found = std::ranges::find(attributes, attribute);
    if (found != attributes.end()) flags[static_cast<std::size_t>(found - attributes.begin())] = 1;
  }

 private:
  std::span<const std::uint8_t> attributes;
  std::vector<std::uint8_t>& flags;
};

void ReadAtaAttributes(const Value& report, FlagWriter& flags) {
  const Value* const table = Member(Member(&report, "ata_smart_attributes"), "table");
  if (table == nullptr || !table->IsArray()) return;
  for (const Value& attribute : table->GetArray())
    if (attribute.IsObject() && IsOutOfLimits(attribute)) flags.Raise(Number(attribute, "id", 0));
}

void ReadNvmeLog(const Value& report, FlagWriter& flags) {
  const Value* const log = Member(&report, "nvme_smart_health_information_log");
  if (log == nullptr || !log->IsObject()) return;
  const std::uint64_t threshold = Number(*log, "available_spare_threshold", 0);
  if (Number(*log, "available_spare", threshold) < threshold) flags.Raise(kAvailableSpare);
  if (Number(*log, "percentage_used", 0) >= 100) flags.Raise(kEnduranceUsed);
}

}  // namespace

TestAnswer UnreadableDisk(TestCall test) {
  TestAnswer answer;
  answer.code = kUnreadable;
  answer.text = L"the disk's health cannot be read";
  answer.flags.assign(AttributesOf(test).size(), 0);
  return answer;
}

TestAnswer ParseSmartReport(TestCall test, std::string_view json) {
  TestAnswer answer = UnreadableDisk(test);
  rapidjson::Document report;
  report.Parse<rapidjson::kParseIterativeFlag>(json.data(), json.size());
  if (report.HasParseError()) return answer;
  const Value* const passed = Member(Member(&report, "smart_status"), "passed");
  if (passed == nullptr || !passed->IsBool()) return answer;

  answer.code = passed->GetBool() ? kHealthy : kFailing;
  answer.text = passed->GetBool() ? L"" : L"the disk reports that it is failing";
  FlagWriter flags(test, answer.flags);
  ReadAtaAttributes(report, flags);
  ReadNvmeLog(report, flags);
  return answer;
}

}  // namespace machine
