#pragma once

#include <atomic>
#include <map>
#include <vector>

#include "sysdiagnose/catalogue/detect_item.h"
#include "sysdiagnose/engine/run_callbacks.h"
#include "sysdiagnose/records/diagnose_summary.h"
#include "sysdiagnose/records/history_record.h"

namespace orv::sysdiagnose {

/// What can be repaired, or is to be: entries by category.
using RepairMap = std::map<enmHardwareID, std::vector<tagRepairItemInfo>>;

/// The list's entry for an item, waiting, with its device as the catalogue knows it now.
DetectListEntry MakeDetectListEntry(const tagDetectItem& item);

void ShowOutcome(DetectListEntry& entry, const CategoryOutcome& outcome);

/// One run: what was selected and how far it has come. The flags may be touched by any thread; the
/// rest is the running task's until the run is over.
struct RunModel {
  std::vector<enmHardwareID> selection;
  std::atomic<bool> running = false;
  std::atomic<bool> finished = false;
  RunRecord record = FreshRunRecord();
  std::vector<DetectListEntry> detectList;  // this run's own copy, in catalogue order
  RepairMap offeredRepairs;

  /// Takes a copy of the catalogue's list as it stands now, every category waiting.
  void TakeDetectList();

  void SetRunning(enmHardwareID category);

  /// Notes an outcome in the record, its counters and the list.
  void SetOutcome(enmHardwareID category, const CategoryOutcome& outcome);

  /// Notes that a repair mended a category, or did not; the counters move when it was abnormal.
  void SetRepaired(enmHardwareID category);
  void SetStillAbnormal(enmHardwareID category);

  /// A summary of the selected categories.
  DiagnoseSummary Summary() const;
};

}  // namespace orv::sysdiagnose
