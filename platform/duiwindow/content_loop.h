#pragma once

#include <wx/event.h>
#include <wx/timer.h>

#include <chrono>
#include <functional>
#include <optional>
#include <vector>

#include "platform/duiwindow/canvas.h"

namespace duiwindow {

/// Keeps the contents of the windows going while a loop runs: closures of the queue, timers, and
/// after whatever was done layout and damage. One timer of the system serves them all, set for the
/// next that is due; without any it is off. UI thread only.
class ContentLoop final : public wxEvtHandler {
 public:
  static ContentLoop& Instance();

  void Add(Canvas& canvas);
  void Remove(Canvas& canvas);
  /// The one that shows it, or null.
  Canvas* Find(const DuiLib::CPaintManagerUI* content) const;

  /// Does what input or a hook asks for, then settles. What it throws is logged.
  void Do(const std::function<void()>& work);
  /// Lays out, has damage painted and sets the timer.
  void Settle();
  /// A loop begins: it runs what has been waiting.
  void WakeUp();

 private:
  ContentLoop();

  void RunWhatIsDue();
  void SetTimer();
  std::optional<std::chrono::nanoseconds> NextDue() const;

  std::vector<Canvas*> canvases;
  wxTimer timer;
};

}  // namespace duiwindow
