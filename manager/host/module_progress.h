#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "common/protocol/summary.h"
#include "manager/host/host_channel.h"

namespace manager {

/// Where a module stands that is checked and repaired from the home page.
enum class ModulePhase {
  kUnknown,  // not checked since the start
  kWaiting,  // for other work to end, before a check or a repair begins
  kChecking,
  kRepairing,
  kResult,
  kStopped,    // by the person, before all was checked
  kBrokenOff,  // the check has ended and told no result
};

/// Follows a module by what it posts, and by whether anything is at work in this process: a run
/// that fails says nothing any more. UI thread only.
class ModuleProgress {
 public:
  enum class Request { kNone, kCheck, kRepair };

  /// The person asks for it; it begins when nothing else is at work.
  void AskCheck() { Ask(Request::kCheck); }
  void AskRepair() { Ask(Request::kRepair); }
  /// What waits does not begin. Whether the module has to be told to stop.
  bool AskStop();

  void OnSummary(const protocol::DiagnoseSummary& told, SummaryOf of);

  /// Time goes on by kTickMs; `idle` tells that no task is under way in this process. What is to be
  /// asked of the module now.
  Request OnTick(bool idle);
  static constexpr int kTickMs = 200;

  ModulePhase Phase() const { return phase; }
  /// Whether ticks are needed.
  bool IsAtWork() const;
  bool IsStopping() const { return stopAsked; }

  /// As the module told last.
  const protocol::DiagnoseSummary& Summary() const { return summary; }
  /// The caption of what is checked now; empty when that is not known.
  std::wstring Running() const;
  std::size_t CheckedCount() const;
  std::vector<protocol::DetectListEntry> Abnormal() const;
  /// The categories that a repair would mend; it knows the offers of the last quiet check alone.
  std::vector<std::int32_t> Repairable() const;
  /// Whether a repair has ended and left something that it was to mend.
  bool IsRepairIncomplete() const;

 private:
  void Ask(Request request);
  void Begin();
  void End();
  bool IsSomethingRunning() const;

  ModulePhase phase = ModulePhase::kUnknown;
  ModulePhase before = ModulePhase::kUnknown;  // it waits
  Request request = Request::kNone;            // the last one, until another result is told
  protocol::DiagnoseSummary summary;
  bool isOfQuietRun = false;
  bool hasTold = false;  // since the run began
  bool stopAsked = false;
  int idleTicks = 0;
};

}  // namespace manager
