#pragma once

#include <atomic>
#include <string>
#include <vector>

#include "sysdiagnose/records/diagnose_summary.h"
#include "sysdiagnose/records/history_record.h"

namespace orv::sysdiagnose {

/// How a category came out.
struct CategoryOutcome {
  bool normal = true;
  bool repairable = false;
  std::wstring text;  // the first hint of an abnormal item
};

/// One run: what was selected and how far it has come. The flags may be touched by any thread; the
/// rest is the running task's until the run is over.
struct RunModel {
  std::vector<enmHardwareID> selection;
  std::atomic<bool> cancelRequested = false;
  std::atomic<bool> running = false;
  std::atomic<bool> finished = false;
  RunRecord record = FreshRunRecord();
  std::vector<DetectListEntry> detectList;  // this run's own copy, in catalogue order

  /// Takes a copy of the catalogue's list as it stands now, every category waiting.
  void TakeDetectList();

  void SetRunning(enmHardwareID category);

  /// Notes an outcome in the record, its counters and the list.
  void SetOutcome(enmHardwareID category, const CategoryOutcome& outcome);

  /// A summary of the selected categories.
  DiagnoseSummary Summary() const;
};

}  // namespace orv::sysdiagnose
