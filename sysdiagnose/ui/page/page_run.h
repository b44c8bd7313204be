#pragma once

#include <atomic>
#include <memory>
#include <utility>

#include "platform/concurrency/message_blocks.h"
#include "platform/duilib/queue/ui_main_queue.h"

namespace orv::sysdiagnose {

/// One run of an engine that a page shows and paces. What the engine tells comes to the page by the
/// run's link, until the page is done with the run; no worker waits for a page that is. Owned by
/// the page, on the UI thread.
class PageRun {
  struct State;

 public:
  /// The engine's end. Any thread; may outlive the run.
  class Link {
   public:
    /// Runs `step` on the UI thread, if the page is not done with the run by then.
    template <typename Step>
    void Post(Step step) const {
      DuiLib::UIMainQueue::dispatch([state = state, step = std::move(step)]() mutable {
        if (!state->isOver) step();
      });
    }

    /// Waits until the page lets the run go on.
    void WaitForPage() const;

    /// Whether the page is done with the run. UI thread only.
    bool IsOver() const { return state->isOver; }

   private:
    friend PageRun;
    explicit Link(std::shared_ptr<State> of) : state(std::move(of)) {}

    std::shared_ptr<State> state;
  };

  PageRun();
  ~PageRun();
  PageRun(const PageRun&) = delete;
  PageRun& operator=(const PageRun&) = delete;

  Link GetLink() const { return Link(state); }

  /// One wait ends.
  void LetGoOn();
  /// Nothing waits any more.
  void StopPacing();

 private:
  struct State {
    bool isOver = false;  // UI thread only
    std::atomic<bool> isPaced = true;
    concurrency::unbounded_buffer<int> gate;
  };

  std::shared_ptr<State> state;
};

}  // namespace orv::sysdiagnose
