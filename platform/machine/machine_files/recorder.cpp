#include "platform/machine/machine_files/recorder.h"

#include <algorithm>
#include <exception>

#include "common/log.h"
#include "platform/machine/machine_files/machine_file.h"
#include "platform/machine/machine_files/machine_file_writer.h"
#include "platform/machine/masking/identifier_mask.h"

namespace machine {
namespace {

RecordedAnswer Ask(Machine& machine, TestCall call, std::size_t ordinal, int disk) {
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

// In disk order, as one detector object asks in a run.
RecordedAnswers AskDisks(Machine& machine, TestCall call) {
  const Inventory& info = machine.Info();
  const bool isSolidState = call == TestCall::DiskSsdSmart;
  const auto count = static_cast<int>(info.Number(InfoCall::DiskCount));
  RecordedAnswers answers;
  for (int disk = 0; disk < count; ++disk) {
    if (info.Flag(InfoCall::DiskIsSolidState, disk) == isSolidState)
      answers.push_back(Ask(machine, call, answers.size(), disk));
  }
  return answers;
}

bool IsAskedByInformation(TestCall call) {
  return call == TestCall::VideoDevice || call == TestCall::AudioDevice;
}

void AskTests(Machine& machine, bool all, Recording& recording) {
  for (const TestCallRow& row : kTestCalls) {
    if (!all && !IsAskedByInformation(row.call)) continue;
    recording.tests[static_cast<std::size_t>(row.call)] =
        row.flagCount > 0 ? AskDisks(machine, row.call)
                          : RecordedAnswers{Ask(machine, row.call, 0, -1)};
  }
}

void MaskInfo(const IdentifierMask& mask, Inventory& info) {
  for (const InfoCallRow& row : kInfoCalls) {
    if (row.shape != InfoShape::Text) continue;
    for (std::size_t i = 0; i < info.Size(row.call); ++i)
      info.Set(row.call, mask.Apply(info.Text(row.call, static_cast<int>(i))), i);
  }
}

void MaskTexts(const IdentifierMask& mask, Recording& recording) {
  MaskInfo(mask, recording.info);
  recording.product = mask.Apply(recording.product);
  if (recording.shelf)
    for (std::string& key : *recording.shelf) key = mask.Apply(key);
  for (auto& [place, value] : recording.registry) value = mask.Apply(value);
  for (RecordedAnswers& answers : recording.tests) {
    for (RecordedAnswer& answer : answers) {
      answer.text = mask.Apply(answer.text);
      answer.notTested = mask.Apply(answer.notTested);
      if (answer.fault) answer.fault = mask.Apply(*answer.fault);
    }
  }
}

}  // namespace

std::string RecordMachine(Machine& machine, const RecordRequest& request) {
  Recording recording;
  recording.product = machine.ProductName();
  recording.shelf = machine.Shelf().value_or(request.installedShelf);
  recording.notFitted = machine.NotFitted();
  recording.registry = request.registry;
  recording.info = machine.Info();
  for (const SupportCallRow& row : kSupportCalls)
    recording.supports[static_cast<std::size_t>(row.call)] = machine.IsSupported(row.call);
  AskTests(machine, request.withTests, recording);
  if (!request.plain) MaskTexts(IdentifierMask(machine.Info()), recording);

  std::string json = WriteMachineFile(recording);
  ParseMachine(json, "the recording");
  return json;
}

}  // namespace machine
