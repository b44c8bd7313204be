#include "cli/kept_verdicts.h"

#include <algorithm>
#include <iterator>

namespace cli {

using namespace orv::sysdiagnose;

namespace {

RunVerdicts VerdictsOf(const LoggedRun& run) {
  std::vector<enmHardwareID> selection;
  for (const LoggedCategory& each : run.categories) selection.push_back(each.category);
  RunVerdicts verdicts(selection);
  for (const LoggedCategory& each : run.categories)
    if (each.isReached) verdicts.Reach({.category = each.category, .verdict = each.verdict});
  return verdicts;
}

RunVerdicts VerdictsOf(const HistoryRecord& record) {
  const auto resultOf = [&record](enmHardwareID category) {
    const auto cell = std::ranges::find(kRecordOrder, category) - kRecordOrder.begin();
    return record.results[static_cast<std::size_t>(cell)];
  };
  std::vector<enmHardwareID> tested;
  std::ranges::copy_if(kRecordOrder, std::back_inserter(tested),
                       [&](enmHardwareID category) { return resultOf(category) != kNotTested; });
  RunVerdicts verdicts(tested);
  for (const enmHardwareID category : tested)
    verdicts.Reach(
        {.category = category,
         .verdict = resultOf(category) == kNormal ? Verdict::Normal : Verdict::Abnormal});
  return verdicts;
}

}  // namespace

KeptVerdicts VerdictsOf(const HistoryRecord& record, const std::vector<LoggedRun>& logged) {
  const auto run = std::ranges::find_if(logged, [&record](const LoggedRun& each) {
    return each.secondTime == record.secondTime && std::ranges::equal(each.results, record.results);
  });
  if (run == logged.end()) return {VerdictsOf(record), record.results.size()};
  return {VerdictsOf(*run), run->categories.size(), run->end == "cancelled"};
}

}  // namespace cli
