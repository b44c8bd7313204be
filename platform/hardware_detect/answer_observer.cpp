#include "platform/hardware_detect/answer_observer.h"

#include <mutex>
#include <utility>

#include "common/log.h"
#include "common/text.h"
#include "platform/hardware_detect/tell_answer.h"
#include "platform/machine/current.h"
#include "platform/machine/masking/identifier_mask.h"

namespace HardwareDetect {
namespace {

struct Observed {
  std::mutex mutex;
  AnswerObserver observer;
};

Observed& State() {
  static Observed& state = *new Observed;
  return state;
}

std::wstring LogLine(const AnswerWords& words) {
  std::wstring line = common::Utf8ToWide(words.call);
  if (words.disk >= 0) line += L", disk " + std::to_wstring(words.disk);
  if (!words.notTested.empty()) line += L", could not be made: " + words.notTested;
  if (!words.text.empty()) line += L", says: " + words.text;
  return machine::IdentifierMask(machine::Current().Info()).Apply(line);
}

}  // namespace

void SetAnswerObserver(AnswerObserver observer) {
  const std::lock_guard lock(State().mutex);
  State().observer = std::move(observer);
}

void TellAnswer(const AnswerWords& words) {
  if (!words.text.empty() || !words.notTested.empty())
    COMMON_LOG_INFO(log4cxx::Logger::getLogger("orv.hardware"), LogLine(words));
  const std::lock_guard lock(State().mutex);
  if (State().observer) State().observer(words);
}

}  // namespace HardwareDetect
