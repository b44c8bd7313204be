#include "platform/duilib/window/headless_window.h"

#include <algorithm>

#include "platform/duilib/queue/ui_main_queue.h"
#include "platform/os/clock.h"

namespace DuiLib {

HeadlessWindow::HeadlessWindow(Size size) {
  manager.SetClientSize(size);
}

void HeadlessWindow::Open(CControlUI* root) {
  manager.SetRoot(root);
  manager.LayOut();
  if (root != nullptr) root->Notify(kNotifyWindowInit);
}

void HeadlessWindow::RunWhatIsDue() {
  while (UIMainQueue::RunPending() != 0) {
  }
  manager.RunDueTimers();
  manager.LayOut();
}

void HeadlessWindow::Tick(std::chrono::milliseconds time) {
  os::Clock& clock = os::CurrentClock();
  const std::chrono::nanoseconds end = clock.Now() + time;
  RunWhatIsDue();
  for (auto now = clock.Now(); now < end; now = clock.Now()) {
    const auto next = std::min(manager.NextDue(true).value_or(end), end);
    clock.Sleep(std::max(next - now, std::chrono::nanoseconds(0)));
    RunWhatIsDue();
  }
}

}  // namespace DuiLib
