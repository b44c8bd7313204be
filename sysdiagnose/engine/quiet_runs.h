#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "sysdiagnose/base/run_stops.h"
#include "sysdiagnose/base/run_task.h"
#include "sysdiagnose/engine/run_model.h"
#include "sysdiagnose/engine/test_objects.h"

namespace orv::sysdiagnose {

/// Checks and repairs the machine for the host's main page, which follows by posted summaries: no
/// callbacks into pages, no history row. One runs at a time in the process, another waits its turn.
/// Operations are for the owner's thread; callbacks run on the task's.
class QuietRuns {
 public:
  /// A category's verdict.
  using CategoryResultCallback = std::function<void(enmHardwareID, bool normal)>;
  using EndedCallback = std::function<void()>;

  QuietRuns();

  /// Has later detections test these of the offered categories alone.
  void TestOnly(std::vector<enmHardwareID> categories) { chosen = std::move(categories); }

  /// Tests all offered categories in catalogue order, and ends with one last summary. The callbacks
  /// may be empty; `told` are all set, or left out.
  void BeginDetection(CategoryResultCallback categoryResult, EndedCallback ended,
                      RunTask::FailedCallback failed);
  void BeginDetection(CategoryCallbacks told, CategoryResultCallback categoryResult,
                      EndedCallback ended, RunTask::FailedCallback failed);

  /// Makes the repairs that the last detection offered for these categories.
  void BeginRepair(std::vector<enmHardwareID> categories, EndedCallback ended,
                   RunTask::FailedCallback failed);

  /// Asks the detections begun so far to stop before their next category. Any thread, also a signal
  /// handler.
  void RequestStop() { stops.Request(); }

  void Wait() const { task.Wait(); }

  /// What the last detection offered; to be read when it is over.
  const RepairMap& OfferedRepairs() const { return state->repairs; }

 private:
  using Choice = std::optional<std::vector<enmHardwareID>>;  // none: all

  struct State {
    std::vector<DetectListEntry> items;
    RepairMap repairs;
    TestObjects objects;

    void Post() const;
    void Detect(const RunStops::Token& stop, const CategoryCallbacks& told,
                const CategoryResultCallback& categoryResult, const Choice& only);
    bool DetectCategory(const tagDetectItem& item, const CategoryCallbacks& told);
    void Repair(const std::vector<enmHardwareID>& categories);
    void RepairCategory(enmHardwareID category);
    void ShowRepaired(enmHardwareID category);
  };

  void Begin(std::function<void(State&)> body, EndedCallback ended, RunTask::FailedCallback failed);

  std::shared_ptr<State> state;
  Choice chosen;
  RunStops stops;
  RunTask task;
};

}  // namespace orv::sysdiagnose
