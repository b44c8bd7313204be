#include "sysdiagnose/engine/run_model.h"

#include <algorithm>
#include <iterator>

#include "sysdiagnose/catalogue/detect_catalogue.h"

namespace orv::sysdiagnose {

void ShowOutcome(DetectListEntry& entry, const CategoryOutcome& outcome) {
  entry.state = outcome.normal ? DisplayState::Normal : DisplayState::Abnormal;
  entry.resultText = outcome.text;
  entry.repairable = !outcome.repairs.empty();
}

DetectListEntry MakeDetectListEntry(const tagDetectItem& item) {
  DetectListEntry entry;
  entry.category = static_cast<std::int32_t>(item.id);
  if (const DetectCategory* category = DetectCatalogue::Instance().Find(item.id)) {
    entry.icon = category->icon;
    entry.caption = category->caption;
    entry.description = category->deviceSummary.Get();
  }
  return entry;
}

void RunModel::TakeDetectList() {
  detectList.clear();
  for (const tagDetectItem& item : DetectCatalogue::Instance().items) {
    DetectListEntry& entry = detectList.emplace_back(MakeDetectListEntry(item));
    entry.selected = std::count(selection.begin(), selection.end(), item.id) > 0;
  }
}

void RunModel::SetRunning(enmHardwareID category) {
  for (DetectListEntry& entry : detectList)
    if (IsOf(entry, category)) entry.state = DisplayState::Running;
}

void RunModel::SetOutcome(enmHardwareID category, const CategoryOutcome& outcome) {
  if (std::int64_t* result = ResultOf(record, category))
    *result = outcome.normal ? kNormal : kAbnormal;
  ++(outcome.normal ? record.passCount : record.failCount);
  if (outcome.repairs.empty())
    offeredRepairs.erase(category);
  else
    offeredRepairs[category] = outcome.repairs;
  for (DetectListEntry& entry : detectList)
    if (IsOf(entry, category)) ShowOutcome(entry, outcome);
}

void RunModel::SetRepaired(enmHardwareID category) {
  std::int64_t* result = ResultOf(record, category);
  if (result != nullptr && *result == kAbnormal) {
    *result = kNormal;
    ++record.passCount;
    --record.failCount;
  }
  offeredRepairs.erase(category);
  for (DetectListEntry& entry : detectList)
    if (IsOf(entry, category)) ShowOutcome(entry, {});
}

void RunModel::SetStillAbnormal(enmHardwareID category) {
  if (std::int64_t* result = ResultOf(record, category)) *result = kAbnormal;
  for (DetectListEntry& entry : detectList)
    if (IsOf(entry, category)) entry.state = DisplayState::Abnormal;
}

DiagnoseSummary RunModel::Summary() const {
  DiagnoseSummary summary;
  std::copy_if(detectList.begin(), detectList.end(), std::back_inserter(summary.items),
               [](const DetectListEntry& entry) { return entry.selected; });
  return summary;
}

}  // namespace orv::sysdiagnose
