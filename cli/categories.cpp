#include "cli/commands.h"
#include "cli/run_log.h"
#include "cli/texts.h"
#include "common/path_text.h"
#include "common/text.h"
#include "sysdiagnose/catalogue/detect_catalogue.h"
#include "sysdiagnose/catalogue/xml_helper.h"

namespace cli {

using namespace orv::sysdiagnose;

namespace {

// Those of the last run for which a condition holds. Throws UsageError when there are none.
template <typename Condition>
std::vector<enmHardwareID> OfLastRun(Condition holds, const wchar_t* none) {
  const std::vector<LoggedRun> runs = ReadRunLog();
  if (runs.empty()) throw UsageError(Message(L"NO_EARLIER_RUN"));
  std::vector<enmHardwareID> categories;
  for (const LoggedCategory& each : runs.back().categories)
    if (holds(each)) categories.push_back(each.category);
  if (categories.empty()) throw UsageError(Message(none));
  return categories;
}

}  // namespace

std::vector<enmHardwareID> SelectedCategories(const Arguments& arguments) {
  if (!arguments.categories.empty()) return arguments.categories;
  if (arguments.failedAgain)
    return OfLastRun([](const LoggedCategory& each) { return each.verdict == Verdict::Abnormal; },
                     L"NOTHING_FAILED");
  if (arguments.resumed)
    return OfLastRun([](const LoggedCategory& each) { return !each.isReached; }, L"ALL_REACHED");
  std::vector<enmHardwareID> offered;
  for (const tagDetectItem& item : DetectCatalogue::Instance().items) offered.push_back(item.id);
  return offered;
}

std::string NothingOffered() {
  if (!DetectCatalogue::Instance().items.empty()) return Line(L"ALL_LEFT_OUT");
  return Line(L"NOTHING_OFFERED", {common::Utf8ToWide(common::PathText(XmlHelper::ListPath()))});
}

std::wstring CaptionOf(enmHardwareID category) {
  const DetectCategory* shown = DetectCatalogue::Instance().Find(category);
  return shown == nullptr ? std::to_wstring(static_cast<int>(category)) : shown->caption;
}

}  // namespace cli
