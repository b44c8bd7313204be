#pragma once

#include <atomic>
#include <functional>
#include <memory>

#include "sysdiagnose/base/run_stops.h"
#include "sysdiagnose/base/run_task.h"
#include "sysdiagnose/catalogue/information_sheet.h"

namespace orv::sysdiagnose {

/// Walks the offered categories once and hands out the rows of each, on a background task. It never
/// waits; who wants to pace it blocks inside the row callback. Operations are for the owner's
/// thread, callbacks run on the task's.
class HardwareScan {
 public:
  /// The id of the last item of the list, -1 for an empty one.
  using CompleteCallback = std::function<void(enmHardwareID last)>;
  using EndedCallback = std::function<void()>;

  HardwareScan();

  /// Ends with `complete` and the report of what was found, with `ended` when it was cancelled, or
  /// with `failed`. Returns at once; throws std::bad_function_call when one of the first three is
  /// empty.
  void Start(InfoRowCallback onRow, CompleteCallback complete, EndedCallback ended,
             RunTask::FailedCallback failed = {});

  /// Asks the scans begun so far to stop before their next category. Any thread, also a signal
  /// handler.
  void Cancel() { stops.Request(); }

  bool IsRunning() const { return state->running; }
  void Wait() const { task.Wait(); }

 private:
  struct State {
    std::atomic<bool> running = false;
  };
  struct Scan;

  std::shared_ptr<State> state;
  RunStops stops;
  RunTask task;
};

}  // namespace orv::sysdiagnose
