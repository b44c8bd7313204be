#include "platform/duilib/window/headless_desktop.h"

#include <algorithm>

#include "platform/duilib/notify/contained_call.h"
#include "platform/duilib/queue/ui_main_queue.h"
#include "platform/duilib/window/window_impl_base.h"

namespace DuiLib {

namespace {

// One of the open windows, whatever ends its loop.
class Listed {
 public:
  Listed(std::vector<WindowImplBase*>& in, WindowImplBase& one) : list(in), window(&one) {
    list.push_back(window);
  }
  Listed(const Listed&) = delete;
  Listed& operator=(const Listed&) = delete;
  ~Listed() { std::erase(list, window); }

 private:
  std::vector<WindowImplBase*>& list;
  WindowImplBase* const window;
};

}  // namespace

class HeadlessDesktop::Window final : public NativeWindow {
 public:
  Window(HeadlessDesktop& on, WindowImplBase& around) : desktop(on), window(around) {
    desktop.Add(window.GetManager());
  }
  ~Window() override { desktop.Remove(window.GetManager()); }

  void Show() override {}

  void Centre() override {
    const CPaintManagerUI* const parent = window.GetParentManager();
    if (parent == nullptr) return;
    const Size room = parent->GetClientSize();
    const Size size = window.GetManager().GetClientSize();
    corner = {(room.width - size.width) / 2, (room.height - size.height) / 2};
  }

  void RunModal() override {
    ended = false;
    desktop.RunModal(window, ended);
  }

  void EndModal() override { ended = true; }
  Point ToClient(Point screen) const override { return {screen.x - corner.x, screen.y - corner.y}; }

 private:
  HeadlessDesktop& desktop;
  WindowImplBase& window;
  Point corner;
  bool ended = false;
};

HeadlessDesktop& HeadlessDesktop::Instance() {
  static HeadlessDesktop& desktop = *new HeadlessDesktop;
  return desktop;
}

std::unique_ptr<NativeWindow> HeadlessDesktop::Make(WindowImplBase& window) {
  return std::make_unique<Window>(*this, window);
}

// Windows may open and close meanwhile.
std::size_t HeadlessDesktop::RunWhatIsDue() {
  constexpr std::size_t kEndless = 10'000;  // closures that make each other do not keep the rest
  std::size_t ran = 0;
  while (const std::size_t closures = ran < kEndless ? UIMainQueue::RunPending() : 0)
    ran += closures;
  const std::vector<CPaintManagerUI*> all = windows;
  for (CPaintManagerUI* window : all) {
    if (std::find(windows.begin(), windows.end(), window) == windows.end()) continue;
    ran += window->RunDueTimers();
    window->LayOut();
  }
  return ran;
}

std::optional<std::chrono::nanoseconds> HeadlessDesktop::NextDue(bool withIdle) const {
  std::optional<std::chrono::nanoseconds> next;
  for (const CPaintManagerUI* window : windows) {
    const auto due = window->NextDue(withIdle);
    if (due) next = next ? std::min(*next, *due) : *due;
  }
  return next;
}

void HeadlessDesktop::RunModal(WindowImplBase& window, const bool& ended) {
  const Listed listed(modals, window);
  while (!ended) {
    RunWhatIsDue();
    if (ended) break;
    if (rest && rest()) continue;
    if (!ended) CallContained([&] { window.OnCancel(); }, "the cancel of a window");
    if (!ended) window.Close(0);
  }
}

}  // namespace DuiLib
