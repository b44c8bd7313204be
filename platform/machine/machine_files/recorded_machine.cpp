#include "platform/machine/machine_files/recorded_machine.h"

#include <algorithm>
#include <stdexcept>

#include "platform/os/clock.h"

namespace machine {
namespace {

RecordedAnswer Play(const RecordedAnswers& answers, std::size_t ordinal, std::uint32_t passedCode) {
  if (answers.empty()) {
    RecordedAnswer passed;
    passed.code = passedCode;
    return passed;
  }
  const RecordedAnswer& answer = answers[std::min(ordinal, answers.size() - 1)];
  if (answer.delay.count() > 0) os::CurrentClock().Sleep(answer.delay);
  if (answer.fault) throw std::runtime_error(*answer.fault);
  return answer;
}

}  // namespace

std::uint32_t PassedCode(const TestCallRow& row) {
  return row.flagCount > 0 ? 1 : 0;
}

bool HasVerdict(TestCall call) {
  return call == TestCall::BiometricDevice || call == TestCall::BiometricFunction;
}

TestAnswer RecordedMachine::Test(TestCall call, std::size_t ordinal, int /*disk*/) {
  const auto index = static_cast<std::size_t>(call);
  RecordedAnswer answer = Play(recording.tests[index], ordinal, PassedCode(kTestCalls[index]));
  return {answer.code, std::move(answer.text), answer.pass, std::move(answer.flags),
          std::move(answer.notTested)};
}

bool RecordedMachine::IsSupported(SupportCall call) {
  return recording.supports[static_cast<std::size_t>(call)].value_or(true);
}

RepairAnswer RecordedMachine::Repair(RepairCall call, std::size_t ordinal, std::uint32_t /*code*/) {
  RecordedAnswer answer = Play(recording.repairs[static_cast<std::size_t>(call)], ordinal, 0);
  return {answer.code, answer.restart, std::move(answer.text)};
}

std::optional<std::wstring> RecordedMachine::RegistryValue(const std::string& root,
                                                           const std::string& key,
                                                           const std::string& name) {
  const auto found = recording.registry.find(RegistryPlace{root, key, name});
  if (found == recording.registry.end()) return std::nullopt;
  return found->second;
}

}  // namespace machine
