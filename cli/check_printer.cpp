#include "cli/check_printer.h"

#include <cstdio>
#include <utility>

#include "cli/attention.h"
#include "cli/commands.h"
#include "cli/json_run_end.h"
#include "cli/live_line.h"
#include "cli/run_summary.h"
#include "cli/terminal_text.h"
#include "cli/texts.h"
#include "cli/verdict_line.h"
#include "common/text.h"

namespace cli {

using namespace orv::sysdiagnose;

namespace {

// What a check shows of a run is little: the rest of the calls comes to nothing.
class CheckPrinter : public RunPrinter {
 public:
  explicit CheckPrinter(const RunVerdicts& noted) : verdicts(noted) {}

  void ItemStart(enmHardwareID, const tagHardwareDetectInfo&) override {}
  void Heading(enmHardwareID, const std::wstring&) override {}
  void ItemResult(enmHardwareID, const tagDetectItemDetail&, const ItemWords&) override {}
  void ItemUntested(enmHardwareID, const std::wstring&, const ItemWords&) override {}
  void HeadingWords(enmHardwareID, const std::wstring&, const ItemWords&) override {}
  void CategoryWords(enmHardwareID, const ItemWords&) override {}
  void CategoryUnknown(enmHardwareID, const std::wstring&) override {}
  void RepairOffer(enmHardwareID, const tagRepairItemInfo&) override {}
  void CategoryEnd(const CategoryVerdict&) override {}
  void RepairCategoryStart(int, enmHardwareID) override {}
  void RepairStart(int, enmHardwareID, const tagRepairItemInfo&) override {}
  void RepairResult(int, enmHardwareID, const tagRepairItemInfo&,
                    const HardwareDetect::tagHARDWARE_REPAIR_RESULT&) override {}
  void RepairCategoryResult(bool, enmHardwareID, int) override {}
  void RepairFinished(bool, bool, int) override {}
  void Record(const RunRecord&, const std::string&) override {}

 protected:
  const RunVerdicts& verdicts;
};

class TextCheckPrinter final : public CheckPrinter {
 public:
  using CheckPrinter::CheckPrinter;

  void ItemStart(enmHardwareID category, const tagHardwareDetectInfo&) override {
    if (std::exchange(current, category) != category)
      live.Show(Printable(CaptionOf(category)) + "…");
  }

  void Heading(enmHardwareID, const std::wstring& caption) override { heading = caption; }

  void ItemResult(enmHardwareID category, const tagDetectItemDetail& detail,
                  const ItemWords& words) override {
    if (!detail.normal) attention.AddItem(category, heading, detail, words);
  }

  void CategoryWords(enmHardwareID category, const ItemWords& words) override {
    attention.AddWords(category, words);
  }

  void CategoryUnknown(enmHardwareID category, const std::wstring& text) override {
    attention.AddUnknown(category, text);
  }

  void RepairOffer(enmHardwareID category, const tagRepairItemInfo&) override {
    attention.AddRepairOffer(category);
  }

  void CategoryEnd(const CategoryVerdict& ended) override {
    heading.clear();
    current = kNoHardware;
    live.Clear();
    live.PrintAbove(VerdictLine(CaptionOf(ended.category), ended.verdict));
  }

  void Cancelled() override { Close(Line(L"CANCELLED")); }

  void Finished(int, int) override { Close({}); }

  void Failed(const std::string& error) override {
    Close(Coloured(Colour::Red, Line(L"FAILED", {common::Utf8ToWide(error)})));
  }

 private:
  void Close(const std::string& ending) {
    live.Clear();
    if (!ending.empty()) std::printf("\n%s\n", ending.c_str());
    PrintRunSummary(verdicts, attention);
    if (!verdicts.All().empty()) std::printf("\n%s\n", CountsLine(verdicts).c_str());
  }

  enmHardwareID current = kNoHardware;
  std::wstring heading;
  AttentionList attention;
  LiveLine live;
};

class JsonCheckPrinter final : public CheckPrinter {
 public:
  using CheckPrinter::CheckPrinter;

  void Cancelled() override { PrintCancelled(verdicts); }
  void Finished(int abnormal, int firstAbnormal) override {
    PrintFinished(abnormal, firstAbnormal, verdicts);
  }
  void Failed(const std::string& error) override { PrintFailed(error, verdicts); }
};

}  // namespace

std::unique_ptr<RunPrinter> MakeCheckPrinter(bool asJson, const RunVerdicts& verdicts) {
  if (asJson) return std::make_unique<JsonCheckPrinter>(verdicts);
  return std::make_unique<TextCheckPrinter>(verdicts);
}

}  // namespace cli
