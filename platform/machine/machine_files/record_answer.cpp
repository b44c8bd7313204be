#include "platform/machine/machine_files/record_answer.h"

#include "common/log.h"

namespace machine {

RecordedAnswer RecordTest(Machine& machine, TestCall call, std::size_t ordinal, int disk) {
  RecordedAnswer recorded;
  try {
    TestAnswer answer = machine.Test(call, ordinal, disk);
    recorded.code = answer.code;
    recorded.text = std::move(answer.text);
    recorded.notTested = std::move(answer.notTested);
    recorded.pass = answer.pass || !HasVerdict(call);
    recorded.flags = std::move(answer.flags);
    while (!recorded.flags.empty() && recorded.flags.back() == 0) recorded.flags.pop_back();
  } catch (...) {
    recorded.code = PassedCode(kTestCalls[static_cast<std::size_t>(call)]);
    recorded.fault = common::DescribeCurrentException();
  }
  return recorded;
}

RecordedAnswer RecordRepair(Machine& machine, RepairCall call, std::uint32_t code) {
  RecordedAnswer recorded;
  try {
    RepairAnswer answer = machine.Repair(call, 0, code);
    recorded.code = answer.code;
    recorded.restart = answer.restart;
    recorded.text = std::move(answer.text);
  } catch (...) {
    recorded.fault = common::DescribeCurrentException();
  }
  return recorded;
}

}  // namespace machine
