#include "platform/hardware_detect/detector.h"

#include <array>
#include <atomic>
#include <utility>

#include "platform/hardware_detect/tell_answer.h"
#include "platform/machine/current.h"

namespace HardwareDetect {

namespace {

constexpr int kNoDisk = -1;

}  // namespace

struct Detector::Calls {
  std::array<std::atomic<std::size_t>, machine::kCountOf<machine::TestCall>> tested{};
  std::array<std::atomic<std::size_t>, machine::kCountOf<machine::RepairCall>> repaired{};
};

Detector::Detector() : calls(std::make_unique<Calls>()) {}
Detector::~Detector() = default;

machine::TestAnswer Detector::Ask(machine::TestCall call, int disk) {
  const std::size_t ordinal = calls->tested[static_cast<std::size_t>(call)]++;
  machine::TestAnswer answer = machine::Current().Test(call, ordinal, disk);
  const std::string_view name = machine::kTestCalls[static_cast<std::size_t>(call)].name;
  TellAnswer({name, answer.text, answer.notTested, disk});
  return answer;
}

std::uint32_t Detector::Ask(machine::TestCall call) {
  return Ask(call, kNoDisk).code;
}

std::uint32_t Detector::Ask(machine::TestCall call, std::wstring& text) {
  machine::TestAnswer answer = Ask(call, kNoDisk);
  text = std::move(answer.text);
  return answer.code;
}

std::uint32_t Detector::Ask(machine::TestCall call, tagHARDWARE_DETECT_RESULT& result) {
  machine::TestAnswer answer = Ask(call, kNoDisk);
  result.code = static_cast<std::int32_t>(answer.code);
  result.text = std::move(answer.text);
  result.pass = answer.pass ? 1 : 0;
  return answer.code;
}

bool Detector::IsSupported(machine::SupportCall call) {
  return machine::Current().IsSupported(call);
}

tagHARDWARE_REPAIR_RESULT Detector::Repair(machine::RepairCall call, std::uint32_t code) {
  const std::size_t ordinal = calls->repaired[static_cast<std::size_t>(call)]++;
  machine::RepairAnswer answer = machine::Current().Repair(call, ordinal, code);
  tagHARDWARE_REPAIR_RESULT result;
  result.code = static_cast<std::int32_t>(answer.code);
  result.restart = answer.restart ? 1 : 0;
  result.text = std::move(answer.text);
  return result;
}

}  // namespace HardwareDetect
