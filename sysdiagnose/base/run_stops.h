#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <utility>

namespace orv::sysdiagnose {

/// Stops asked of the runs of one owner. Runs are numbered as they begin: a stop holds for those
/// begun before it, whatever begins later.
class RunStops {
  using Number = std::uint64_t;
  static_assert(std::atomic<Number>::is_always_lock_free);

  struct State {
    std::atomic<Number> begun = 0;
    std::atomic<Number> stopped = 0;  // the last run that a stop was asked of
  };

 public:
  /// One run's question whether it is to stop. Any thread; may outlive the owner.
  class Token {
   public:
    bool IsRequested() const { return number <= state->stopped; }

   private:
    friend RunStops;
    Token(std::shared_ptr<const State> asked, Number run) : state(std::move(asked)), number(run) {}

    std::shared_ptr<const State> state;
    Number number;
  };

  /// A new run, not to be stopped yet. For the owner's thread.
  Token Begin() { return {state, ++state->begun}; }

  /// Asks every run begun so far to stop. Any thread, also a signal handler.
  void Request() {
    const Number last = state->begun;
    Number before = state->stopped;
    while (before < last && !state->stopped.compare_exchange_weak(before, last)) {
    }
  }

 private:
  const std::shared_ptr<State> state = std::make_shared<State>();
};

}  // namespace orv::sysdiagnose
