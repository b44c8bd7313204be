#include "platform/machine/live/smart_tool.h"

#include <chrono>

#include "common/log.h"
#include "platform/machine/live/smart_report.h"
#include "platform/os/process.h"

namespace machine {
namespace {

constexpr std::chrono::seconds kLimit{10};

log4cxx::LoggerPtr& Logger() {
  static auto& logger = *new log4cxx::LoggerPtr(log4cxx::Logger::getLogger("orv.machine"));
  return logger;
}

}  // namespace

TestAnswer AskSmartTool(TestCall test, const std::string& device) {
  // The exit status tells of the disk's health too; the report says it better.
  const auto result = os::RunProcess({"smartctl", "--json", "-a", device}, kLimit);
  if (!result) COMMON_LOG_WARN(Logger(), "smartctl gives no report about " + device);
  return result ? ParseSmartReport(test, result->output) : UnreadableDisk(test);
}

}  // namespace machine
