#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/hardware_detect/hardware_detect.h"
#include "sysdiagnose/base/run_stops.h"
#include "sysdiagnose/base/run_task.h"
#include "sysdiagnose/engine/run_callbacks.h"
#include "sysdiagnose/engine/run_model.h"
#include "sysdiagnose/engine/test_objects.h"

namespace orv::sysdiagnose {

/// The run was cancelled; what had been done is stored.
using CancelledCallback = std::function<void()>;
/// Takes the number of abnormal categories and the position of the first in the selection, or -1.
using DetectFinishedCallback = std::function<void(int& abnormal, int& firstAbnormal)>;
/// Takes the reason of a run that an exception ended: it is neither cancelled nor finished, and no
/// record is kept.
using RunFailedCallback = RunTask::FailedCallback;

/// What a repair run tells, on the run's thread. Positions are those of the selection. All are set.
struct RepairCallbacks {
  std::function<void(int position, enmHardwareID)> categoryStart;
  std::function<void(int position, enmHardwareID, tagRepairItemInfo&)> repairStart;
  std::function<void(int position, enmHardwareID, tagRepairItemInfo&,
                     HardwareDetect::tagHARDWARE_REPAIR_RESULT&)>
      repairResult;
  std::function<void(bool repaired, enmHardwareID, int position)> categoryResult;
  CancelledCallback cancelled;
  /// `firstFaulty` is the position of the first category that stayed faulty, or -1.
  std::function<void(bool allRepaired, bool restartNeeded, int firstFaulty)> finished;
};

/// Runs diagnoses and repairs on background tasks, one at a time. Operations are for the owner's
/// thread; callbacks run on the task's. The engine may be destroyed while a run goes on, which then
/// ends by itself.
class DiagnoseEngine {
 public:
  DiagnoseEngine();

  /// Tests the selected categories in order. Each category tells its items, results and offers, and
  /// then its verdict as it is counted; the run ends with `cancelled`, with `finished` (the summary
  /// is posted and the record stored), or with `failed`. Returns at once; throws
  /// std::bad_function_call when one of the first six callbacks is empty.
  void BeginDetectRun(std::vector<enmHardwareID> selection, ItemStartCallback itemStart,
                      ItemResultCallback itemResult, CategoryUnknownCallback categoryUnknown,
                      RepairOfferCallback repairOffer, CancelledCallback cancelled,
                      DetectFinishedCallback finished, RunFailedCallback failed = {},
                      CategoryVerdictCallback verdict = {});

  /// Carries out these repairs for the run begun last, category by category in its order, and ends
  /// as a detection run does. To be called when that run is over. Returns at once; throws
  /// std::bad_function_call when one of the callbacks is empty.
  void BeginRepairRun(RepairMap repairs, RepairCallbacks callbacks, RunFailedCallback failed = {});

  /// Asks the runs begun so far to stop before their next category or repair. Any thread, also a
  /// signal handler.
  void CancelDetect() { stops.Request(); }

  bool IsRunning() const { return model->running; }

  /// Waits until the run begun last is over and its callbacks have returned.
  void Wait() const { task.Wait(); }

  // Of the run begun last; to be read when it is over.
  const RunRecord& Record() const { return model->record; }
  const RepairMap& OfferedRepairs() const { return model->offeredRepairs; }

 private:
  void Begin(std::function<void()> body, RunFailedCallback failed);

  std::shared_ptr<RunModel> model;
  std::shared_ptr<TestObjects> objects;
  RunStops stops;
  RunTask task;
};

}  // namespace orv::sysdiagnose
