#pragma once

#include <deque>
#include <functional>
#include <utility>

#include "platform/duilib/window/headless_desktop.h"
#include "platform/duilib/window/person.h"
#include "platform/duilib/window/window_impl_base.h"

namespace orv::sysdiagnose {

/// One who does this and that in the window that is open, one thing each time when all else has
/// been done.
class ModalSteps {
 public:
  ModalSteps() = default;
  ModalSteps(const ModalSteps&) = delete;
  ModalSteps& operator=(const ModalSteps&) = delete;
  ~ModalSteps() { DuiLib::HeadlessDesktop::Instance().SetRest({}); }

  void Set(std::deque<std::function<void(DuiLib::Person&)>> steps) {
    DuiLib::HeadlessDesktop::Instance().SetRest([steps = std::move(steps)]() mutable {
      if (steps.empty()) return false;
      const auto step = std::move(steps.front());
      steps.pop_front();
      DuiLib::Person person(DuiLib::HeadlessDesktop::Instance().GetModals().back()->GetManager());
      step(person);
      return true;
    });
  }
};

}  // namespace orv::sysdiagnose
