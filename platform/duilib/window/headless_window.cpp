#include "platform/duilib/window/headless_window.h"

#include <algorithm>

#include "platform/duilib/window/headless_desktop.h"
#include "platform/os/clock.h"

namespace DuiLib {

HeadlessWindow::HeadlessWindow(Size size) {
  manager.SetClientSize(size);
  HeadlessDesktop::Instance().Add(manager);
}

HeadlessWindow::~HeadlessWindow() {
  HeadlessDesktop::Instance().Remove(manager);
}

void HeadlessWindow::Open(CControlUI* root) {
  manager.SetRoot(root);
  manager.LayOut();
  if (root != nullptr) root->Notify(kNotifyWindowInit);
}

void HeadlessWindow::Tick(std::chrono::milliseconds time) {
  os::Clock& clock = os::CurrentClock();
  const std::chrono::nanoseconds end = clock.Now() + time;
  HeadlessDesktop& desktop = HeadlessDesktop::Instance();
  desktop.RunWhatIsDue();
  for (auto now = clock.Now(); now < end; now = clock.Now()) {
    const auto next = std::min(desktop.NextDue().value_or(end), end);
    clock.Sleep(std::max(next - now, std::chrono::nanoseconds(0)));
    desktop.RunWhatIsDue();
  }
}

}  // namespace DuiLib
