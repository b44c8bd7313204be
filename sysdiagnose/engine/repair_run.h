#pragma once

#include <memory>

#include "sysdiagnose/engine/diagnose_engine.h"

namespace orv::sysdiagnose {

/// The body of a repair run, over the model of the detection run before it; owns all it needs.
class RepairRun {
 public:
  RepairRun(std::shared_ptr<RunModel> run, RunStops::Token asked, RepairMap chosen,
            RepairCallbacks told)
      : model(std::move(run)),
        stop(std::move(asked)),
        repairs(std::move(chosen)),
        callbacks(std::move(told)) {}

  void Run();

 private:
  /// False when the run was cancelled before one of the repairs.
  bool RepairCategory(int position, enmHardwareID category,
                      const std::vector<tagRepairItemInfo>& entries);
  /// Whether the repair succeeded.
  bool RepairEntry(int position, enmHardwareID category, const tagRepairItemInfo& entry);

  std::shared_ptr<RunModel> model;
  RunStops::Token stop;
  RepairMap repairs;
  RepairCallbacks callbacks;
  bool allRepaired = true;
  bool restartNeeded = false;
  int firstFaulty = -1;
};

}  // namespace orv::sysdiagnose
