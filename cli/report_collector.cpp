#include <algorithm>

#include "cli/commands.h"
#include "cli/run_report.h"
#include "sysdiagnose/engine/advice.h"

namespace cli {

using namespace orv::sysdiagnose;

namespace {

class ReportCollector final : public RunPrinter {
 public:
  ReportCollector(const std::vector<enmHardwareID>& selection, RunReport& filled,
                  std::unique_ptr<RunPrinter> following)
      : report(filled), next(std::move(following)) {
    for (const enmHardwareID category : selection) CategoryOf(category);
  }

  void ItemStart(enmHardwareID category, const tagHardwareDetectInfo& info) override {
    next->ItemStart(category, info);
  }

  void Heading(enmHardwareID category, const std::wstring& caption) override {
    CategoryOf(category).items.push_back({ItemState::Heading, caption, {}, 0, {}, {}});
    next->Heading(category, caption);
  }

  void ItemResult(enmHardwareID category, const tagDetectItemDetail& detail,
                  const ItemWords& words) override {
    const ItemState state = detail.normal ? ItemState::Normal : ItemState::Abnormal;
    if (!detail.normal) report.attention.AddItem(category, HeadingOf(category), detail, words);
    if (!detail.caption.empty())
      CategoryOf(category).items.push_back(
          {state, detail.caption, detail.hint, detail.code, words,
           detail.normal ? std::wstring() : AdviceText(category, detail.caption, detail.code)});
    next->ItemResult(category, detail, words);
  }

  void ItemUntested(enmHardwareID category, const std::wstring& caption,
                    const ItemWords& words) override {
    CategoryOf(category).items.push_back({ItemState::NotTested, caption, {}, 0, words, {}});
    next->ItemUntested(category, caption, words);
  }

  void HeadingWords(enmHardwareID category, const std::wstring& caption,
                    const ItemWords& words) override {
    std::vector<ReportItem>& items = CategoryOf(category).items;
    const auto heading = std::find_if(items.rbegin(), items.rend(), [](const ReportItem& item) {
      return item.state == ItemState::Heading;
    });
    if (heading != items.rend()) heading->words = words;
    next->HeadingWords(category, caption, words);
  }

  void CategoryWords(enmHardwareID category, const ItemWords& words) override {
    CategoryOf(category).words = words;
    report.attention.AddWords(category, words);
    next->CategoryWords(category, words);
  }

  void CategoryUnknown(enmHardwareID category, const std::wstring& text) override {
    CategoryOf(category).unknown.push_back(text);
    report.attention.AddUnknown(category, text);
    next->CategoryUnknown(category, text);
  }

  void RepairOffer(enmHardwareID category, const tagRepairItemInfo& offer) override {
    CategoryOf(category).repairOffer = offer.text;
    report.attention.AddRepairOffer(category);
    next->RepairOffer(category, offer);
  }

  void CategoryEnd(const CategoryVerdict& ended) override { next->CategoryEnd(ended); }

  void Cancelled() override {
    report.end = RunEnd::Cancelled;
    next->Cancelled();
  }

  void Finished(int abnormal, int firstAbnormal) override {
    report.end = RunEnd::Finished;
    next->Finished(abnormal, firstAbnormal);
  }

  void Failed(const std::string& error) override {
    report.end = RunEnd::Failed;
    report.error = error;
    next->Failed(error);
  }

  void RepairCategoryStart(int position, enmHardwareID category) override {
    next->RepairCategoryStart(position, category);
  }

  void RepairStart(int position, enmHardwareID category, const tagRepairItemInfo& repair) override {
    next->RepairStart(position, category, repair);
  }

  void RepairResult(int position, enmHardwareID category, const tagRepairItemInfo& repair,
                    const HardwareDetect::tagHARDWARE_REPAIR_RESULT& result) override {
    CategoryOf(category).repairs.push_back(
        {repair.command, result.code == 0, result.restart != 0, result.text});
    next->RepairResult(position, category, repair, result);
  }

  void RepairCategoryResult(bool repaired, enmHardwareID category, int position) override {
    CategoryOf(category).repaired = repaired;
    next->RepairCategoryResult(repaired, category, position);
  }

  void RepairFinished(bool all, bool restart, int firstFaulty) override {
    report.end = RunEnd::Finished;
    next->RepairFinished(all, restart, firstFaulty);
  }

  void Record(const RunRecord& record, const std::string& notKept) override {
    report.record = record;
    report.notKept = notKept;
    next->Record(record, notKept);
  }

 private:
  // The device that the items are about, where the run names it.
  std::wstring HeadingOf(enmHardwareID category) {
    const std::vector<ReportItem>& items = CategoryOf(category).items;
    const auto heading = std::find_if(items.rbegin(), items.rend(), [](const ReportItem& item) {
      return item.state == ItemState::Heading;
    });
    return heading == items.rend() ? std::wstring() : heading->caption;
  }

  ReportCategory& CategoryOf(enmHardwareID id) {
    const auto known = std::ranges::find(report.categories, id, &ReportCategory::id);
    if (known != report.categories.end()) return *known;
    ReportCategory& added = report.categories.emplace_back();
    added.id = id;
    added.caption = CaptionOf(id);
    return added;
  }

  RunReport& report;
  const std::unique_ptr<RunPrinter> next;
};

}  // namespace

std::unique_ptr<RunPrinter> MakeReportCollector(const std::vector<enmHardwareID>& selection,
                                                RunReport& report,
                                                std::unique_ptr<RunPrinter> next) {
  return std::make_unique<ReportCollector>(selection, report, std::move(next));
}

}  // namespace cli
