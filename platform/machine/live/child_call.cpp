#include "platform/machine/live/child_call.h"

#include <exception>
#include <memory>
#include <string>
#include <vector>

#include "common/log.h"
#include "common/path_text.h"
#include "common/text.h"
#include "platform/machine/machine_files/machine_file.h"
#include "platform/os/paths.h"
#include "platform/os/process.h"

namespace machine {
namespace {

constexpr const char* kProgram = "hardware-probe";
constexpr std::uint32_t kRepairUnknown = 1;

std::filesystem::path& ChosenProgram() {
  static std::filesystem::path& chosen = *new std::filesystem::path;
  return chosen;
}

std::string Program() {
  const std::filesystem::path& chosen = ChosenProgram();
  return common::PathText(chosen.empty() ? os::InstallationFolder() / kProgram : chosen);
}

std::string Root() {
  return os::IsSystemRootSet() ? common::PathText(os::SystemPath("/")) : std::string();
}

// What a repair writes down lies where this program keeps it. Empty where that cannot be had.
std::string Data() try {
  return common::PathText(os::DataFolder());
} catch (const std::exception&) {
  return {};
}

std::wstring NoAnswerWithin(std::chrono::milliseconds limit) {
  return L"no answer within " + std::to_wstring(limit.count() / 1000) + L" seconds";
}

/// What the program answers, or null and why it does not.
std::unique_ptr<Machine> Ask(std::vector<std::string> words, std::chrono::milliseconds limit,
                             std::wstring& reason) {
  words.insert(words.begin(), {Program(), Root(), Data()});
  const auto begin = std::chrono::steady_clock::now();
  std::string fault;
  const auto result = os::RunProcess(words, limit, &fault);
  if (result) {
    try {
      return ParseMachine(result->output, kProgram);
    } catch (const MachineFileError& error) {
      fault = error.what();
    }
  }
  COMMON_LOG_WARN(log4cxx::Logger::getLogger("orv.machine"),
                  words[0] + ' ' + words[3] + ' ' + words[4] + ": " + fault);
  reason = std::chrono::steady_clock::now() - begin >= limit
               ? NoAnswerWithin(limit)
               : L"no answer: the program that asks " + common::Utf8ToWide(fault);
  return nullptr;
}

}  // namespace

TestAnswer TestInChild(TestCall call, int disk, std::chrono::milliseconds limit) {
  const std::string name(kTestCalls[static_cast<std::size_t>(call)].name);
  TestAnswer unanswered;
  const auto answer = Ask({"test", name, std::to_string(disk)}, limit, unanswered.notTested);
  return answer == nullptr ? unanswered : answer->Test(call, 0, disk);
}

RepairAnswer RepairInChild(RepairCall call, std::uint32_t code, std::chrono::milliseconds limit) {
  const std::string name(kRepairCalls[static_cast<std::size_t>(call)].name);
  RepairAnswer unanswered{kRepairUnknown, false, {}};
  const auto answer = Ask({"repair", name, std::to_string(code)}, limit, unanswered.text);
  return answer == nullptr ? unanswered : answer->Repair(call, 0, code);
}

void SetProbeProgram(std::filesystem::path program) {
  ChosenProgram() = std::move(program);
}

}  // namespace machine
