#include "platform/machine/machine_files/recorder.h"

#include <algorithm>

#include "platform/machine/machine_files/machine_file.h"
#include "platform/machine/machine_files/machine_file_writer.h"
#include "platform/machine/machine_files/record_answer.h"
#include "platform/machine/masking/identifier_mask.h"

namespace machine {
namespace {

// In disk order, as one detector object asks in a run.
RecordedAnswers AskDisks(Machine& machine, TestCall call) {
  const Inventory& info = machine.Info();
  const bool isSolidState = call == TestCall::DiskSsdSmart;
  const auto count = static_cast<int>(info.Number(InfoCall::DiskCount));
  RecordedAnswers answers;
  for (int disk = 0; disk < count; ++disk) {
    if (info.Flag(InfoCall::DiskIsSolidState, disk) == isSolidState)
      answers.push_back(RecordTest(machine, call, answers.size(), disk));
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
                          : RecordedAnswers{RecordTest(machine, row.call, 0, -1)};
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
