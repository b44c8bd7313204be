#include "sysdiagnose/base/run_task.h"

#include <utility>

#include "sysdiagnose/base/log.h"

namespace orv::sysdiagnose {

void RunTask::Begin(std::function<void()> body, FailedCallback failed) {
  const auto run = task.is_done() ? concurrency::create_task([body = std::move(body)] { body(); })
                                  : task.then([body = std::move(body)](const auto&) { body(); });
  task = run.then([failed = std::move(failed)](const concurrency::task<void>& ended) {
    try {
      ended.get();
    } catch (...) {
      const std::string error = common::DescribeCurrentException();
      SYSDIAGNOSE_LOG_ERROR("The run ended with an error: " + error +
                            "(orv::sysdiagnose::RunTask::Begin)");
      failed(error);
    }
  });
}

}  // namespace orv::sysdiagnose
