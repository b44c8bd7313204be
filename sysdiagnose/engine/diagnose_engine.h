#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/concurrency/task.h"
#include "sysdiagnose/engine/run_callbacks.h"
#include "sysdiagnose/engine/run_model.h"
#include "sysdiagnose/engine/test_objects.h"

namespace orv::sysdiagnose {

/// Runs diagnoses on background tasks, one at a time. Operations are for the owner's thread;
/// callbacks run on the task's. The engine may be destroyed while a run goes on, which then ends by
/// itself.
class DiagnoseEngine {
 public:
  using CancelledCallback = std::function<void()>;
  /// Takes the number of abnormal categories and the position of the first in the selection, or -1.
  using FinishedCallback = std::function<void(int& abnormal, int& firstAbnormal)>;
  /// Takes the reason of a run that an exception ended: it is neither cancelled nor finished, and
  /// no record is kept.
  using FailedCallback = std::function<void(const std::string& error)>;

  DiagnoseEngine();

  /// Tests the selected categories in order. Each category tells its items, results and offers; the
  /// run ends with `cancelled` (what was tested is stored), with `finished` (the summary is posted
  /// and the record stored), or with `failed`. Returns at once; throws std::bad_function_call when
  /// one of the first six callbacks is empty.
  void BeginDetectRun(std::vector<enmHardwareID> selection, ItemStartCallback itemStart,
                      ItemResultCallback itemResult, CategoryUnknownCallback categoryUnknown,
                      RepairOfferCallback repairOffer, CancelledCallback cancelled,
                      FinishedCallback finished, FailedCallback failed = {});

  /// Asks the run to stop before its next category. Any thread, also a signal handler.
  void CancelDetect() { model->cancelRequested = true; }

  bool IsRunning() const { return model->running; }

  /// Waits until the run begun last is over and its callbacks have returned.
  void Wait() const { task.get(); }

  /// The record of the run begun last; to be read when it is over.
  const RunRecord& Record() const { return model->record; }

 private:
  std::shared_ptr<RunModel> model;
  std::shared_ptr<TestObjects> objects;
  concurrency::task<void> task;
};

}  // namespace orv::sysdiagnose
