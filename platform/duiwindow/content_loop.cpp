#include "platform/duiwindow/content_loop.h"

#include <algorithm>

#include "platform/duilib/notify/contained_call.h"
#include "platform/duilib/queue/ui_main_queue.h"
#include "platform/os/clock.h"

namespace duiwindow {

ContentLoop& ContentLoop::Instance() {
  static ContentLoop& loop = *new ContentLoop;
  return loop;
}

ContentLoop::ContentLoop() : timer(this) {
  Bind(wxEVT_TIMER, [this](wxTimerEvent&) { RunWhatIsDue(); });
  Bind(wxEVT_THREAD, [this](wxThreadEvent&) { RunWhatIsDue(); });
  DuiLib::UIMainQueue::SetWakeUp([this] { WakeUp(); });
}

// Any thread.
void ContentLoop::WakeUp() {
  QueueEvent(new wxThreadEvent);
}

void ContentLoop::Add(Canvas& canvas) {
  canvases.push_back(&canvas);
}

void ContentLoop::Remove(Canvas& canvas) {
  std::erase(canvases, &canvas);
}

Canvas* ContentLoop::Find(const DuiLib::CPaintManagerUI* content) const {
  const auto found = std::find_if(canvases.begin(), canvases.end(), [&](const Canvas* canvas) {
    return canvas->GetContent() == content;
  });
  return found == canvases.end() ? nullptr : *found;
}

void ContentLoop::Do(const std::function<void()>& work) {
  DuiLib::CallContained(work, "what a window was asked for");
  Settle();
}

// Windows may open and close meanwhile.
void ContentLoop::RunWhatIsDue() {
  DuiLib::UIMainQueue::RunPending();
  const std::vector<Canvas*> all = canvases;
  for (Canvas* const canvas : all) {
    if (std::find(canvases.begin(), canvases.end(), canvas) == canvases.end()) continue;
    DuiLib::CallContained([&] { canvas->GetContent()->RunDueTimers(); }, "a timer");
  }
  Settle();
}

void ContentLoop::Settle() {
  for (Canvas* const canvas : canvases) {
    DuiLib::CallContained([&] { canvas->GetContent()->LayOut(); }, "the layout");
    canvas->ShowDamage();
  }
  SetTimer();
}

// What only moves waits while nobody can see it.
std::optional<std::chrono::nanoseconds> ContentLoop::NextDue() const {
  std::optional<std::chrono::nanoseconds> next;
  for (const Canvas* const canvas : canvases) {
    const auto due = canvas->GetContent()->NextDue(canvas->IsSeen());
    if (due) next = next ? std::min(*next, *due) : *due;
  }
  return next;
}

void ContentLoop::SetTimer() {
  const auto next = NextDue();
  if (!next) return timer.Stop();
  const auto rest = std::chrono::ceil<std::chrono::milliseconds>(*next - os::CurrentClock().Now());
  constexpr std::chrono::milliseconds::rep kLeast = 1;
  constexpr std::chrono::milliseconds::rep kMost = 1000 * 3600;
  timer.StartOnce(static_cast<int>(std::clamp(rest.count(), kLeast, kMost)));
}

}  // namespace duiwindow
