#include "sysdiagnose/engine/repair_run.h"

#include <chrono>

#include "platform/os/clock.h"
#include "sysdiagnose/engine/hardware_repair_helper.h"
#include "sysdiagnose/engine/run_end.h"

namespace orv::sysdiagnose {
namespace {

// Before each repair, for the user to follow; also where a cancel is honoured.
constexpr std::chrono::milliseconds kPause{500};

}  // namespace

void RepairRun::Run() {
  model->running = true;
  for (std::size_t i = 0; i < model->selection.size(); ++i) {
    const enmHardwareID category = model->selection[i];
    const auto chosen = repairs.extract(category);  // a category chosen twice is repaired once
    if (chosen.empty() || chosen.mapped().empty()) continue;
    if (!RepairCategory(static_cast<int>(i), category, chosen.mapped()))
      return EndCancelledRun(*model, callbacks.cancelled);
  }
  EndFinishedRun(*model, [this] { callbacks.finished(allRepaired, restartNeeded, firstFaulty); });
}

bool RepairRun::RepairCategory(int position, enmHardwareID category,
                               const std::vector<tagRepairItemInfo>& entries) {
  callbacks.categoryStart(position, category);
  bool repaired = true;
  for (const tagRepairItemInfo& entry : entries) {
    tagRepairItemInfo shown = entry;
    callbacks.repairStart(position, category, shown);
    os::CurrentClock().Sleep(kPause);
    if (stop.IsRequested()) return false;
    repaired = RepairEntry(position, category, entry) && repaired;
  }
  if (repaired) {
    model->SetRepaired(category);
  } else {
    model->SetStillAbnormal(category);
    allRepaired = false;
    if (firstFaulty == -1) firstFaulty = position;
  }
  callbacks.categoryResult(repaired, category, position);
  return true;
}

bool RepairRun::RepairEntry(int position, enmHardwareID category, const tagRepairItemInfo& entry) {
  tagRepairItemInfo shown = entry;
  tagRepairItemInfo consumed = entry;
  HardwareDetect::tagHARDWARE_REPAIR_RESULT result;
  HardwareRepairHelper::Instance().Repair(consumed.command, consumed.parameter, result);
  callbacks.repairResult(position, category, shown, result);
  if (result.restart != 0) restartNeeded = true;
  return result.code == 0;
}

}  // namespace orv::sysdiagnose
