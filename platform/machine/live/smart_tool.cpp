#include "platform/machine/live/smart_tool.h"

#include <chrono>

#include "common/text.h"
#include "platform/machine/live/smart_report.h"
#include "platform/os/process.h"

namespace machine {
namespace {

constexpr std::chrono::seconds kLimit{10};

}  // namespace

TestAnswer AskSmartTool(TestCall test, const std::string& device) {
  // The exit status tells of the disk's health too; the report says it better.
  std::string fault;
  const auto result = os::RunProcess({"smartctl", "--json", "-a", device}, kLimit, &fault);
  if (!result) return UnreadableDisk(test, L"smartctl " + common::Utf8ToWide(fault));
  return ParseSmartReport(test, result->output);
}

}  // namespace machine
