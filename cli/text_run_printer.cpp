#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <utility>

#include "cli/attention.h"
#include "cli/commands.h"
#include "cli/live_line.h"
#include "cli/progress.h"
#include "cli/run_log.h"
#include "cli/run_printer.h"
#include "cli/run_summary.h"
#include "cli/terminal_text.h"
#include "cli/texts.h"
#include "cli/verdict_line.h"
#include "common/seconds_text.h"
#include "common/text.h"
#include "sysdiagnose/engine/advice.h"

namespace cli {

using namespace orv::sysdiagnose;

namespace {

constexpr std::size_t kWordsIndent = 4;

std::vector<std::wstring> Sentences(const ItemWords& words) {
  std::vector<std::wstring> sentences;
  for (const std::wstring& sentence : {words.detail, words.notTested})
    if (!sentence.empty()) sentences.push_back(sentence);
  return sentences;
}

class TextRunPrinter final : public RunPrinter {
  using Clock = std::chrono::steady_clock;

 public:
  TextRunPrinter(std::vector<enmHardwareID> selected, const RunVerdicts& noted)
      : selection(std::move(selected)), verdicts(noted) {}

  void ItemStart(enmHardwareID category, const tagHardwareDetectInfo& info) override {
    EnterCategory(category);
    live.Show("[" + std::to_string(position + 1) + "/" + std::to_string(selection.size()) + "] " +
                  Printable(CaptionOf(category)) + "  " + Printable(info.caption) + "…",
              [this] { return ProgressText(); });
  }

  void Heading(enmHardwareID, const std::wstring& caption) override {
    heading = caption;
    shownWords.clear();
    if (!caption.empty()) live.PrintAbove("  " + Printable(caption));
  }

  void ItemResult(enmHardwareID category, const tagDetectItemDetail& detail,
                  const ItemWords& words) override {
    if (detail.caption.empty()) return;
    const Verdict verdict = VerdictOf(detail, words);
    PrintRow(detail.caption, verdict);
    if (verdict != Verdict::Normal || detail.code != 0) PrintWords(words);
    if (verdict == Verdict::Abnormal) attention.AddItem(category, heading, detail, words);
  }

  void ItemUntested(enmHardwareID category, const std::wstring& caption,
                    const ItemWords& words) override {
    if (caption.empty() && words.IsEmpty()) return;
    PrintRow(caption.empty() ? CaptionOf(category) : caption, Verdict::NotTested);
    PrintWords(words);
  }

  void HeadingWords(enmHardwareID, const std::wstring& caption, const ItemWords& words) override {
    live.PrintAbove("  " + Printable(caption) + Line(L"COLON"));
    PrintWords(words);
  }

  void CategoryWords(enmHardwareID category, const ItemWords& words) override {
    PrintWords(words);
    attention.AddWords(category, words);
  }

  void CategoryUnknown(enmHardwareID category, const std::wstring& text) override {
    attention.AddUnknown(category, text);
  }

  void RepairOffer(enmHardwareID category, const tagRepairItemInfo&) override {
    attention.AddRepairOffer(category);
  }

  // A category that showed no row has its verdict on a line of its own.
  void CategoryEnd(const CategoryVerdict& ended) override {
    heading.clear();
    shownWords.clear();
    if (std::exchange(hasRows, false)) return;
    EnterCategory(ended.category);
    PrintRow(Text(L"WHOLE_CATEGORY"), ended.verdict);
    hasRows = false;
  }

  void Cancelled() override {
    live.Clear();
    std::printf("\n%s\n", Line(isRepairing ? L"REPAIR_CANCELLED" : L"CANCELLED").c_str());
  }

  void Finished(int, int) override { live.Clear(); }

  void Failed(const std::string& error) override {
    live.Clear();
    std::puts("");
    std::puts(
        Coloured(Colour::Red, Indented(Text(L"FAILED", {common::Utf8ToWide(error)}), 0)).c_str());
    PrintRunSummary(verdicts, attention);
  }

  void RepairCategoryStart(int, enmHardwareID category) override {
    isRepairing = true;
    live.PrintAbove(Coloured(Colour::Bold, Line(L"REPAIRING", {CaptionOf(category)})));
  }

  void RepairStart(int, enmHardwareID, const tagRepairItemInfo& repair) override {
    live.Show("  " + Printable(repair.command) + "…");
  }

  void RepairResult(int, enmHardwareID, const tagRepairItemInfo& repair,
                    const HardwareDetect::tagHARDWARE_REPAIR_RESULT& result) override {
    const bool isDone = result.code == 0;
    live.PrintAbove("  " +
                    Coloured(isDone ? Colour::Green : Colour::Red,
                             Line(isDone ? L"REPAIRED" : L"REPAIR_FAILED")) +
                    Line(L"COLON") + Printable(result.text.empty() ? repair.command : result.text));
  }

  void RepairCategoryResult(bool, enmHardwareID, int) override {}

  void RepairFinished(bool all, bool restart, int) override {
    live.Clear();
    std::printf("\n%s\n", Line(all ? L"ALL_REPAIRED" : L"NOT_ALL_REPAIRED").c_str());
    if (restart) std::puts(Line(L"RESTART").c_str());
  }

  void Record(const RunRecord& record, const std::string& notKept) override {
    if (!std::exchange(summed, true)) PrintRunSummary(verdicts, attention);
    const std::string elapsed = common::SecondsText(std::chrono::steady_clock::now() - begun);
    std::printf("\n%s\n", CountsLine(verdicts).c_str());
    const std::wstring took = Text(L"TOOK", {common::Utf8ToWide(elapsed)});
    const std::wstring kept = Text(L"KEPT", {common::Utf8ToWide(record.dateTime)});
    std::puts(Indented(notKept.empty() ? JoinedSentences(took, kept) : took, 0).c_str());
    if (!notKept.empty())
      std::puts(Coloured(Colour::Red, Line(L"NOT_KEPT", {common::Utf8ToWide(notKept)})).c_str());
  }

 private:
  // Categories come in the order of the selection; one that shows nothing is passed over.
  void EnterCategory(enmHardwareID category) {
    if (entered && selection[position] == category) return;
    const auto from = selection.begin() + static_cast<std::ptrdiff_t>(entered ? position + 1 : 0);
    position =
        static_cast<std::size_t>(std::find(from, selection.end(), category) - selection.begin());
    entered = true;
    categoryBegan = Clock::now();
    live.PrintAbove(Coloured(Colour::Bold, Printable(CaptionOf(category))));
  }

  // Called by the live line while nothing else moves on.
  std::string ProgressText() const {
    const auto shown = progress.At(position, std::chrono::duration_cast<std::chrono::milliseconds>(
                                                 Clock::now() - categoryBegan.load()));
    if (!shown) return {};
    return std::to_string(shown->percent) + " %  " +
           Line(L"TIME_LEFT", {common::Utf8ToWide(common::SecondsText(shown->left))});
  }

  void PrintRow(const std::wstring& caption, Verdict verdict) {
    hasRows = true;
    live.PrintAbove(VerdictLine(caption, verdict));
  }

  // What was said of a device is not said again of its next row.
  void PrintWords(const ItemWords& words) {
    for (const std::wstring& sentence : Sentences(words)) {
      if (std::ranges::count(shownWords, sentence) != 0) continue;
      shownWords.push_back(sentence);
      live.PrintAbove(Indented(sentence, kWordsIndent));
    }
  }

  const std::vector<enmHardwareID> selection;
  const RunVerdicts& verdicts;
  const std::chrono::steady_clock::time_point begun = std::chrono::steady_clock::now();
  const Progress progress{selection, LastDurations(ReadRunLog())};
  std::atomic<std::size_t> position = 0;
  std::atomic<Clock::time_point> categoryBegan = Clock::now();
  bool entered = false;
  bool hasRows = false;  // of the category
  std::wstring heading;
  std::vector<std::wstring> shownWords;  // below the heading
  bool isRepairing = false;
  bool summed = false;
  AttentionList attention;
  LiveLine live;
};

}  // namespace

std::unique_ptr<RunPrinter> MakeTextRunPrinter(std::vector<enmHardwareID> selection,
                                               const RunVerdicts& verdicts) {
  return std::make_unique<TextRunPrinter>(std::move(selection), verdicts);
}

}  // namespace cli
