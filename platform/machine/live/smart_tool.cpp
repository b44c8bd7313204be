#include "platform/machine/live/smart_tool.h"

#include "common/text.h"
#include "platform/machine/live/call_limits.h"
#include "platform/machine/live/smart_report.h"
#include "platform/os/process.h"

namespace machine {

TestAnswer AskSmartTool(TestCall test, const std::string& device) {
  // The exit status tells of the disk's health too; the report says it better.
  std::string fault;
  const auto result =
      os::RunProcess({"smartctl", "--json", "-a", device}, LimitOf(CallLimit::Device), &fault);
  if (!result) return UnreadableDisk(test, L"smartctl " + common::Utf8ToWide(fault));
  return ParseSmartReport(test, result->output);
}

}  // namespace machine
