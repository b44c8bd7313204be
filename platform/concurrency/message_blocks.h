#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <utility>

#include "platform/concurrency/condition.h"
#include "platform/os/export.h"
#include "platform/os/module_pin.h"

// Message blocks of the concurrency runtime: a target takes values, a source gives them.
namespace concurrency {

template <typename Value>
class ITarget {
 public:
  virtual ~ITarget() = default;
  virtual void send(Value value) = 0;
};

namespace detail {
struct CallState;

/// Runs handed-over steps one after another on a runtime thread.
class UTIL_API SerialQueue {
 public:
  explicit SerialQueue(const void* owner);
  SerialQueue(const SerialQueue&) = delete;
  SerialQueue& operator=(const SerialQueue&) = delete;
  ~SerialQueue();  // waits for the steps handed over so far

  void Post(std::function<void()> step);

 private:
  std::shared_ptr<CallState> state;
};

struct TimerState;

/// Ticks on a runtime thread until stopped, by the clock that was in force when it was started.
class UTIL_API Ticker {
 public:
  Ticker(unsigned periodMs, bool repeating, std::function<void()> tick, const void* owner);
  Ticker(const Ticker&) = delete;
  Ticker& operator=(const Ticker&) = delete;
  ~Ticker();

  void Start();
  void Stop();  // no tick runs or starts after it has returned, but the one that calls it

 private:
  std::shared_ptr<TimerState> state;
};
}  // namespace detail

/// Runs a function for each value it is sent, in order, one at a time, on a runtime thread. The
/// destructor waits for the values sent so far.
template <typename Value>
class call : public ITarget<Value> {
 public:
  template <typename Callable>
  explicit call(Callable function)
      : step(std::move(function)), queue(os::AddressInCaller<Callable>()) {}

  void send(Value value) override {
    queue.Post([this, value = std::move(value)] { step(value); });
  }

 private:
  std::function<void(const Value&)> step;
  detail::SerialQueue queue;  // last: its destructor waits for steps that use the members above
};

/// Sends a value to a target each `periodMs` milliseconds, or once. Starts when told; stop() and
/// the destructor return when no tick runs any more, unless a tick calls them. The target outlives
/// the timer. The module stays loaded until the timer is stopped, or has sent its one value.
template <typename Value>
class timer {
 public:
  timer(unsigned periodMs, Value value, ITarget<Value>* target, bool repeating)
      : ticker(
            periodMs, repeating, [value = std::move(value), target] { target->send(value); },
            os::AddressInCaller<timer>()) {}

  void start() { ticker.Start(); }
  void stop() { ticker.Stop(); }

 private:
  detail::Ticker ticker;
};

/// A queue without a bound. Any thread.
template <typename Value>
class unbounded_buffer : public ITarget<Value> {
 public:
  void send(Value value) override {
    const std::lock_guard lock(mutex);
    values.push_back(std::move(value));
    filled.NotifyOne();
  }

  /// Takes the oldest value; waits for one.
  Value receive() {
    std::unique_lock lock(mutex);
    filled.Wait(lock, [this] { return !values.empty(); });
    return Take();
  }

  /// Takes the oldest value if there is one.
  bool try_receive(Value& value) {
    const std::lock_guard lock(mutex);
    if (values.empty()) return false;
    value = Take();
    return true;
  }

 private:
  Value Take() {
    Value value = std::move(values.front());
    values.pop_front();
    return value;
  }

  std::mutex mutex;
  detail::Condition filled;
  std::deque<Value> values;
};

}  // namespace concurrency
