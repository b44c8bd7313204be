#include "platform/hardware_detect/detector.h"

#include <utility>

#include "platform/machine/current.h"

namespace HardwareDetect {

machine::TestAnswer Detector::Ask(machine::TestCall call, int disk) {
  const std::size_t ordinal = tested[static_cast<std::size_t>(call)]++;
  return machine::Current().Test(call, ordinal, disk);
}

std::uint32_t Detector::Ask(machine::TestCall call, std::wstring& text) {
  machine::TestAnswer answer = Ask(call);
  text = std::move(answer.text);
  return answer.code;
}

bool Detector::IsSupported(machine::SupportCall call) {
  return machine::Current().IsSupported(call);
}

tagHARDWARE_REPAIR_RESULT Detector::Repair(machine::RepairCall call, std::uint32_t code) {
  const std::size_t ordinal = repaired[static_cast<std::size_t>(call)]++;
  machine::RepairAnswer answer = machine::Current().Repair(call, ordinal, code);
  tagHARDWARE_REPAIR_RESULT result;
  result.code = static_cast<std::int32_t>(answer.code);
  result.restart = answer.restart ? 1 : 0;
  result.text = std::move(answer.text);
  return result;
}

}  // namespace HardwareDetect
