#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <vector>

#include "platform/duilib/tree/paint_manager.h"
#include "platform/duilib/window/native_window.h"

namespace DuiLib {

/// The windows that are on no screen. UI thread only.
class DUILIB_API HeadlessDesktop final : public WindowSystem {
 public:
  static HeadlessDesktop& Instance();

  /// Windows whose timers run; in the order they came.
  void Add(CPaintManagerUI& window) { windows.push_back(&window); }
  void Remove(CPaintManagerUI& window) { std::erase(windows, &window); }

  /// The open modal windows, the topmost last.
  const std::vector<WindowImplBase*>& GetModals() const { return modals; }

  /// What the loop of a modal window does when all that was due has been done, instead of a
  /// person; when it answers false, or there is nothing set, the window is closed as by its cancel.
  void SetRest(std::function<bool()> value) { rest = std::move(value); }

  /// Runs queued closures and due timers, and lays out. How many closures and timers ran.
  std::size_t RunWhatIsDue();
  /// When the next timer is due by the clock in force; those that nobody waits for as told.
  std::optional<std::chrono::nanoseconds> NextDue(bool withIdle = true) const;

  std::unique_ptr<NativeWindow> Make(WindowImplBase& window) override;

 private:
  class Window;

  void RunModal(WindowImplBase& window, const bool& ended);

  std::vector<CPaintManagerUI*> windows;
  std::vector<WindowImplBase*> modals;
  std::function<bool()> rest;
};

}  // namespace DuiLib
