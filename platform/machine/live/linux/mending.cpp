#include "platform/machine/live/linux/mending.h"

#include <cerrno>
#include <chrono>
#include <system_error>
#include <utility>

#include "common/text.h"
#include "platform/os/clock.h"

namespace machine {
namespace {

constexpr std::chrono::seconds kMendingLimit{10};
constexpr std::chrono::milliseconds kBetweenTests{250};
constexpr std::uint32_t kFailed = 1;

}  // namespace

RepairAnswer TestAgain(const std::function<TestAnswer()>& test) {
  os::Clock& clock = os::CurrentClock();
  const auto deadline = clock.Now() + kMendingLimit;
  for (;;) {
    TestAnswer answer = test();
    if (answer.code == 0 && answer.notTested.empty()) return {};
    if (clock.Now() >= deadline) {
      std::wstring reason = answer.text.empty() ? answer.notTested : std::move(answer.text);
      return {answer.code == 0 ? kFailed : answer.code, false, std::move(reason)};
    }
    clock.Sleep(kBetweenTests);
  }
}

RepairAnswer FailedRepair(std::wstring reason) {
  return {kFailed, false, std::move(reason)};
}

std::wstring ReasonOf(int error) {
  if (error == EACCES || error == EPERM) return L"this needs the rights of the administrator";
  return common::Utf8ToWide(std::generic_category().message(error));
}

}  // namespace machine
