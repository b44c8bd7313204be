#include "platform/machine/live/probe.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <optional>
#include <string>
#include <string_view>

#include "common/path_text.h"
#include "platform/machine/live/live_machine.h"
#include "platform/machine/machine_files/machine_file_writer.h"
#include "platform/machine/machine_files/record_answer.h"
#include "platform/os/paths.h"

namespace machine {
namespace {

constexpr int kWrongUse = 2;

template <typename Number>
std::optional<Number> NumberOf(std::string_view word) {
  Number number = 0;
  const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
  if (error != std::errc() || end != word.data() + word.size()) return std::nullopt;
  return number;
}

int Print(const Recording& recording) {
  const std::string text = WriteMachineFile(recording);
  const bool written = std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
  return written && std::fflush(stdout) == 0 ? 0 : 1;
}

int AnswerTest(TestCall call, int disk) {
  LiveMachine machine;
  Recording recording;
  recording.tests[static_cast<std::size_t>(call)] = {RecordTest(machine, call, 0, disk)};
  return Print(recording);
}

int AnswerRepair(RepairCall call, std::uint32_t code) {
  LiveMachine machine;
  Recording recording;
  recording.repairs[static_cast<std::size_t>(call)] = {RecordRepair(machine, call, code)};
  return Print(recording);
}

}  // namespace

int AnswerAsProbe(int count, const char* const* words) {
  if (count != 6) return kWrongUse;
  const std::string_view root = words[1], data = words[2], kind = words[3], name = words[4],
                         about = words[5];
  if (!root.empty()) os::SetSystemRoot(common::TextPath(std::string(root)));
  if (!data.empty()) os::SetDataFolder(common::TextPath(std::string(data)));
  const auto test = std::ranges::find(kTestCalls, name, &TestCallRow::name);
  const auto repair = std::ranges::find(kRepairCalls, name, &RepairCallRow::name);
  const auto disk = NumberOf<int>(about);
  const auto code = NumberOf<std::uint32_t>(about);
  if (kind == "test" && test != kTestCalls.end() && disk) return AnswerTest(test->call, *disk);
  if (kind == "repair" && repair != kRepairCalls.end() && code)
    return AnswerRepair(repair->call, *code);
  return kWrongUse;
}

}  // namespace machine
