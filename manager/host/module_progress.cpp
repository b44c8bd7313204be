#include "manager/host/module_progress.h"

#include <algorithm>

namespace manager {
namespace {

using protocol::DetectListEntry;
using protocol::DisplayState;

// A run's first and last words come a moment before and after its task: by messages.
constexpr int kTicksBeforeItsBegin = 25;
constexpr int kTicksBehindItsEnd = 2;

bool IsIn(const DetectListEntry& entry, DisplayState state) {
  return entry.state == state;
}

}  // namespace

void ModuleProgress::Ask(Request asked) {
  if (IsAtWork()) return;
  request = asked;
  before = phase;
  phase = ModulePhase::kWaiting;
}

bool ModuleProgress::AskStop() {
  if (phase == ModulePhase::kWaiting) {
    phase = before;
    return false;
  }
  stopAsked = phase == ModulePhase::kChecking;
  return stopAsked;
}

void ModuleProgress::OnSummary(const protocol::DiagnoseSummary& told, SummaryOf of) {
  const bool isQuiet = of == SummaryOf::kQuietRun;
  const bool isRunning = phase == ModulePhase::kChecking || phase == ModulePhase::kRepairing;
  if (isRunning && !isQuiet) return;
  summary = told;
  isOfQuietRun = isQuiet;
  hasTold = true;
  if (phase == ModulePhase::kWaiting) before = ModulePhase::kResult;
  if (phase == ModulePhase::kWaiting || phase == ModulePhase::kRepairing) return;
  request = Request::kNone;
  if (IsSomethingRunning()) {
    phase = ModulePhase::kChecking;
    return;
  }
  phase = stopAsked ? ModulePhase::kStopped : ModulePhase::kResult;
  stopAsked = false;
}

void ModuleProgress::Begin() {
  hasTold = stopAsked = false;
  idleTicks = 0;
  phase = request == Request::kCheck ? ModulePhase::kChecking : ModulePhase::kRepairing;
  if (request == Request::kCheck) summary = {};
}

ModuleProgress::Request ModuleProgress::OnTick(bool idle) {
  if (phase == ModulePhase::kWaiting) {
    if (!idle) return Request::kNone;
    Begin();
    return request;
  }
  idleTicks = idle ? idleTicks + 1 : 0;
  if (IsAtWork() && idleTicks >= (hasTold ? kTicksBehindItsEnd : kTicksBeforeItsBegin)) End();
  return Request::kNone;
}

// It says nothing any more.
void ModuleProgress::End() {
  const bool hasResult = phase == ModulePhase::kRepairing && hasTold;
  phase = hasResult ? ModulePhase::kResult : ModulePhase::kBrokenOff;
  stopAsked = false;
}

bool ModuleProgress::IsAtWork() const {
  return phase == ModulePhase::kWaiting || phase == ModulePhase::kChecking ||
         phase == ModulePhase::kRepairing;
}

bool ModuleProgress::IsSomethingRunning() const {
  return std::any_of(summary.items.begin(), summary.items.end(), [](const DetectListEntry& entry) {
    return IsIn(entry, DisplayState::Running);
  });
}

std::wstring ModuleProgress::Running() const {
  for (const DetectListEntry& entry : summary.items)
    if (IsIn(entry, DisplayState::Running)) return entry.caption;
  return {};
}

std::size_t ModuleProgress::CheckedCount() const {
  return static_cast<std::size_t>(
      std::count_if(summary.items.begin(), summary.items.end(), [](const DetectListEntry& entry) {
        return IsIn(entry, DisplayState::Normal) || IsIn(entry, DisplayState::Abnormal);
      }));
}

std::vector<DetectListEntry> ModuleProgress::Abnormal() const {
  std::vector<DetectListEntry> found;
  for (const DetectListEntry& entry : summary.items)
    if (IsIn(entry, DisplayState::Abnormal)) found.push_back(entry);
  return found;
}

std::vector<std::int32_t> ModuleProgress::Repairable() const {
  std::vector<std::int32_t> categories;
  if (!isOfQuietRun) return categories;
  for (const DetectListEntry& entry : Abnormal())
    if (entry.repairable) categories.push_back(entry.category);
  return categories;
}

bool ModuleProgress::IsRepairIncomplete() const {
  return phase == ModulePhase::kResult && request == Request::kRepair && !Repairable().empty();
}

}  // namespace manager
