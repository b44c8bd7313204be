#include "platform/duilib/notify/contained_call.h"

#include "common/log.h"

namespace DuiLib {

void CallContained(const std::function<void()>& function, const char* what) {
  try {
    function();
  } catch (...) {
    COMMON_LOG_ERROR(log4cxx::Logger::getLogger("orv.duilib"),
                     what + (" failed: " + common::DescribeCurrentException()));
  }
}

bool TellHook(std::function<bool(TNotifyUI&)> hook, TNotifyUI& notification) {
  if (!hook) return false;
  bool taken = true;
  CallContained([&] { taken = hook(notification); }, "the hook of a control");
  return taken;
}

}  // namespace DuiLib
