#include "cli/json_line.h"
#include "cli/json_run_end.h"
#include "cli/run_printer.h"
#include "sysdiagnose/engine/advice.h"

namespace cli {

using namespace orv::sysdiagnose;

namespace {

std::int64_t Number(enmHardwareID category) {
  return static_cast<std::int64_t>(category);
}

void AddWords(JsonLine& line, const ItemWords& words) {
  if (!words.detail.empty()) line.Add("detail", words.detail);
  if (!words.notTested.empty()) line.Add("notTested", words.notTested);
}

class JsonRunPrinter final : public RunPrinter {
 public:
  explicit JsonRunPrinter(const RunVerdicts& noted) : verdicts(noted) {}

  void ItemStart(enmHardwareID category, const tagHardwareDetectInfo& info) override {
    JsonLine("itemStart")
        .Add("category", Number(category))
        .Add("caption", info.caption)
        .Add("command", info.repairCommand)
        .Add("failureText", info.repairFailureText);
  }

  void Heading(enmHardwareID, const std::wstring&) override {}

  void ItemResult(enmHardwareID category, const tagDetectItemDetail& detail,
                  const ItemWords& words) override {
    JsonLine line("itemResult");
    line.Add("category", Number(category))
        .Add("caption", detail.caption)
        .Add("normal", detail.normal)
        .Add("hint", detail.hint)
        .Add("code", std::int64_t{detail.code});
    AddWords(line, words);
    line.Add("verdict", std::string(NameOf(VerdictOf(detail, words))));
    const std::wstring advice = AdviceText(category, detail.caption, detail.code);
    if (!detail.normal && !advice.empty()) line.Add("advice", advice);
  }

  void ItemUntested(enmHardwareID category, const std::wstring& caption,
                    const ItemWords& words) override {
    if (!words.IsEmpty()) HeadingWords(category, caption, words);
  }

  void HeadingWords(enmHardwareID category, const std::wstring& caption,
                    const ItemWords& words) override {
    JsonLine line("words");
    AddWords(line.Add("category", Number(category)).Add("caption", caption), words);
  }

  void CategoryWords(enmHardwareID category, const ItemWords& words) override {
    JsonLine line("words");
    AddWords(line.Add("category", Number(category)), words);
  }

  void CategoryUnknown(enmHardwareID category, const std::wstring& text) override {
    JsonLine("categoryUnknown").Add("category", Number(category)).Add("text", text);
  }

  void RepairOffer(enmHardwareID category, const tagRepairItemInfo& offer) override {
    JsonLine("repairOffer").Add("category", Number(category)).Add("text", offer.text);
  }

  void CategoryEnd(const CategoryVerdict& ended) override {
    JsonLine("category")
        .Add("category", Number(ended.category))
        .Add("verdict", std::string(NameOf(ended.verdict)))
        .Add("reason", ended.reason);
  }

  void Cancelled() override { PrintCancelled(verdicts); }

  void Finished(int abnormal, int firstAbnormal) override {
    PrintFinished(abnormal, firstAbnormal, verdicts);
  }

  void Failed(const std::string& error) override { PrintFailed(error, verdicts); }

  void RepairCategoryStart(int position, enmHardwareID category) override {
    JsonLine("categoryStart")
        .Add("position", std::int64_t{position})
        .Add("category", Number(category));
  }

  void RepairStart(int position, enmHardwareID category, const tagRepairItemInfo& repair) override {
    JsonLine("repairStart")
        .Add("position", std::int64_t{position})
        .Add("category", Number(category))
        .Add("command", repair.command)
        .Add("parameter", repair.parameter);
  }

  void RepairResult(int position, enmHardwareID category, const tagRepairItemInfo& repair,
                    const HardwareDetect::tagHARDWARE_REPAIR_RESULT& result) override {
    JsonLine("repairResult")
        .Add("position", std::int64_t{position})
        .Add("category", Number(category))
        .Add("command", repair.command)
        .Add("code", std::int64_t{result.code})
        .Add("restart", result.restart != 0)
        .Add("text", result.text);
  }

  void RepairCategoryResult(bool repaired, enmHardwareID category, int position) override {
    JsonLine("categoryResult")
        .Add("repaired", repaired)
        .Add("category", Number(category))
        .Add("position", std::int64_t{position});
  }

  void RepairFinished(bool all, bool restart, int firstFaulty) override {
    JsonLine("repairFinished")
        .Add("all", all)
        .Add("restart", restart)
        .Add("firstFaulty", std::int64_t{firstFaulty});
  }

  void Record(const RunRecord& record, const std::string& notKept) override {
    JsonLine("record").AddCells(record);
    if (!notKept.empty()) JsonLine("notKept").Add("error", notKept);
  }

 private:
  const RunVerdicts& verdicts;
};

}  // namespace

std::unique_ptr<RunPrinter> MakeJsonRunPrinter(const RunVerdicts& verdicts) {
  return std::make_unique<JsonRunPrinter>(verdicts);
}

}  // namespace cli
