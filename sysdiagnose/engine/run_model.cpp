#include "sysdiagnose/engine/run_model.h"

#include <algorithm>
#include <iterator>

#include "sysdiagnose/catalogue/detect_catalogue.h"

namespace orv::sysdiagnose {

void RunModel::TakeDetectList() {
  const DetectCatalogue& catalogue = DetectCatalogue::Instance();
  detectList.clear();
  for (const tagDetectItem& item : catalogue.items) {
    DetectListEntry entry;
    entry.category = item.id;
    entry.selected = std::count(selection.begin(), selection.end(), item.id) > 0;
    if (const DetectCategory* category = catalogue.Find(item.id)) {
      entry.icon = category->icon;
      entry.caption = category->caption;
      entry.description = category->deviceSummary.Get();
    }
    detectList.push_back(std::move(entry));
  }
}

void RunModel::SetRunning(enmHardwareID category) {
  for (DetectListEntry& entry : detectList)
    if (entry.category == category) entry.state = DisplayState::Running;
}

void RunModel::SetOutcome(enmHardwareID category, const CategoryOutcome& outcome) {
  if (std::int64_t* result = ResultOf(record, category))
    *result = outcome.normal ? kNormal : kAbnormal;
  ++(outcome.normal ? record.passCount : record.failCount);
  for (DetectListEntry& entry : detectList) {
    if (entry.category != category) continue;
    entry.state = outcome.normal ? DisplayState::Normal : DisplayState::Abnormal;
    entry.resultText = outcome.text;
    entry.repairable = outcome.repairable;
  }
}

DiagnoseSummary RunModel::Summary() const {
  DiagnoseSummary summary;
  std::copy_if(detectList.begin(), detectList.end(), std::back_inserter(summary.items),
               [](const DetectListEntry& entry) { return entry.selected; });
  return summary;
}

}  // namespace orv::sysdiagnose
