#include <algorithm>
#include <chrono>
#include <cstdio>
#include <map>
#include <utility>

#include "cli/commands.h"
#include "cli/live_line.h"
#include "cli/run_printer.h"
#include "cli/terminal_text.h"
#include "common/seconds_text.h"
#include "common/text.h"

namespace cli {

using namespace orv::sysdiagnose;

namespace {

constexpr std::size_t kLineColumns = 80;
constexpr std::size_t kWordsIndent = 12;  // under the captions
constexpr std::size_t kItemIndent = 2;
constexpr std::size_t kNoteIndent = 4;

// The lines of a text below another, set in.
std::string Indented(const std::wstring& text, std::size_t indent) {
  std::string lines;
  for (const std::wstring& line : Wrapped(text, kLineColumns - indent))
    lines += (lines.empty() ? "" : "\n") + std::string(indent, ' ') + Printable(line);
  return lines;
}

std::vector<std::wstring> Sentences(const ItemWords& words) {
  std::vector<std::wstring> sentences;
  if (!words.detail.empty()) sentences.push_back(words.detail);
  if (!words.notTested.empty()) sentences.push_back(L"could not be tested: " + words.notTested);
  return sentences;
}

struct NoteLine {
  std::wstring text;
  std::vector<std::wstring> words;  // of the test library

  bool operator==(const NoteLine&) const = default;
};

// What the closing summary says of one category.
struct Trouble {
  enmHardwareID category;
  std::vector<NoteLine> lines;
  bool repairOffered = false;
};

std::string VerdictText(const tagDetectItemDetail& detail, const ItemWords& words) {
  if (!detail.normal) return Coloured(Colour::Red, "ABNORMAL");
  if (!words.notTested.empty()) return Coloured(Colour::Yellow, "untested");
  return Coloured(Colour::Green, "ok      ");
}

class TextRunPrinter final : public RunPrinter {
 public:
  explicit TextRunPrinter(std::vector<enmHardwareID> selected) : selection(std::move(selected)) {}

  void ItemStart(enmHardwareID category, const tagHardwareDetectInfo& info) override {
    EnterCategory(category);
    live.Show("[" + std::to_string(position + 1) + "/" + std::to_string(selection.size()) + "] " +
              Printable(CaptionOf(category)) + "  " + Printable(info.caption) + "…");
  }

  void Heading(enmHardwareID, const std::wstring& caption) override {
    heading = caption;
    headingWords.clear();
    if (!caption.empty()) live.PrintAbove("  " + Printable(caption));
  }

  void ItemResult(enmHardwareID category, const tagDetectItemDetail& detail,
                  const ItemWords& words) override {
    if (detail.caption.empty()) return;
    live.PrintAbove("  " + VerdictText(detail, words) + "  " + Printable(detail.caption));
    std::vector<std::wstring> shown = Sentences(words);
    if (detail.normal && detail.code == 0 && words.notTested.empty()) shown.clear();
    if (!heading.empty() && !shown.empty() && std::exchange(headingWords, shown) == shown)
      shown.clear();
    PrintWords(shown);
    if (!detail.normal)
      Note(category, heading.empty() ? detail.caption : heading + L", " + detail.caption,
           detail.hint, shown);
  }

  void ItemUntested(enmHardwareID, const std::wstring& caption, const ItemWords& words) override {
    if (caption.empty() && words.IsEmpty()) return;
    live.PrintAbove("  " + Printable(caption) +
                    (words.notTested.empty() ? "  (could not be tested)" : ""));
    PrintWords(Sentences(words));
  }

  void HeadingWords(enmHardwareID, const std::wstring& caption, const ItemWords& words) override {
    live.PrintAbove("  " + Printable(caption) + ":");
    PrintWords(Sentences(words));
  }

  void CategoryWords(enmHardwareID category, const ItemWords& words) override {
    PrintWords(Sentences(words), kItemIndent);
    said[category] = Sentences(words);
  }

  void CategoryUnknown(enmHardwareID category, const std::wstring& text) override {
    live.PrintAbove("            " + Coloured(Colour::Yellow, Printable(text)));
    Note(category, text, {}, {});
  }

  void RepairOffer(enmHardwareID category, const tagRepairItemInfo&) override {
    TroubleOf(category).repairOffered = true;
  }

  void Cancelled() override {
    live.Clear();
    std::puts("\nThe run was cancelled.");
  }

  void Finished(int, int) override { live.Clear(); }

  void Failed(const std::string& error) override {
    live.Clear();
    std::printf("\n%s %s\n", Coloured(Colour::Red, "The run failed:").c_str(),
                Printable(common::Utf8ToWide(error)).c_str());
  }

  void RepairCategoryStart(int, enmHardwareID category) override {
    live.PrintAbove(Coloured(Colour::Bold, "Repairing " + Printable(CaptionOf(category))));
  }

  void RepairStart(int, enmHardwareID, const tagRepairItemInfo& repair) override {
    live.Show("  " + Printable(repair.command) + "…");
  }

  void RepairResult(int, enmHardwareID, const tagRepairItemInfo& repair,
                    const HardwareDetect::tagHARDWARE_REPAIR_RESULT& result) override {
    live.PrintAbove("  " +
                    (result.code == 0 ? Coloured(Colour::Green, "repaired")
                                      : Coloured(Colour::Red, "FAILED  ")) +
                    "  " + Printable(result.text.empty() ? repair.command : result.text));
  }

  void RepairCategoryResult(bool, enmHardwareID, int) override {}

  void RepairFinished(bool all, bool restart, int) override {
    live.Clear();
    std::printf("\n%s\n", all ? "Every repair succeeded." : "Not every repair succeeded.");
    if (restart) std::puts("Restart the computer for the repairs to take effect.");
  }

  void Record(const RunRecord& record, const std::string& notKept) override {
    if (!std::exchange(summed, true)) PrintSummary(record);
    const std::string elapsed = common::SecondsText(std::chrono::steady_clock::now() - begun);
    std::printf("\nCategories: %lld normal, %lld abnormal. Took %s",
                static_cast<long long>(record.passCount), static_cast<long long>(record.failCount),
                elapsed.c_str());
    if (notKept.empty())
      std::printf(", kept as %s.\n", record.dateTime.c_str());
    else
      std::printf(".\n%s %s\n", Coloured(Colour::Red, "The run could not be kept:").c_str(),
                  Printable(common::Utf8ToWide(notKept)).c_str());
  }

 private:
  // Categories come in the order of the selection; one that shows nothing is passed over.
  void EnterCategory(enmHardwareID category) {
    if (entered && selection[position] == category) return;
    const auto from = selection.begin() + static_cast<std::ptrdiff_t>(entered ? position + 1 : 0);
    position =
        static_cast<std::size_t>(std::find(from, selection.end(), category) - selection.begin());
    entered = true;
    heading.clear();
    live.PrintAbove(Coloured(Colour::Bold, Printable(CaptionOf(category))));
  }

  void PrintWords(const std::vector<std::wstring>& sentences, std::size_t indent = kWordsIndent) {
    for (const std::wstring& sentence : sentences) live.PrintAbove(Indented(sentence, indent));
  }

  Trouble& TroubleOf(enmHardwareID category) {
    const auto known =
        std::find_if(troubles.begin(), troubles.end(),
                     [category](const Trouble& trouble) { return trouble.category == category; });
    if (known != troubles.end()) return *known;
    return troubles.emplace_back(Trouble{category, {}});
  }

  void Note(enmHardwareID category, const std::wstring& what, const std::wstring& hint,
            const std::vector<std::wstring>& words) {
    std::vector<NoteLine>& lines = TroubleOf(category).lines;
    const NoteLine line{hint.empty() ? what : what + L": " + hint, words};
    if (std::count(lines.begin(), lines.end(), line) == 0) lines.push_back(line);
  }

  // A category may be abnormal without an abnormal item: it is listed by its name alone.
  void PrintSummary(const RunRecord& record) {
    for (std::size_t i = 0; i < record.results.size(); ++i)
      if (record.results[i] == kAbnormal) TroubleOf(kRecordOrder[i]);
    if (troubles.empty())
      std::printf("\n%s\n",
                  Coloured(Colour::Green, "Everything that could be tested is normal.").c_str());
    else
      std::printf("\n%s\n", Coloured(Colour::Bold, "What needs attention:").c_str());
    for (const Trouble& trouble : troubles) {
      std::printf("  %s%s\n", Coloured(Colour::Red, Printable(CaptionOf(trouble.category))).c_str(),
                  trouble.repairOffered ? " (a repair is offered)" : "");
      for (const NoteLine& line : trouble.lines) {
        std::printf("    %s\n", Printable(line.text).c_str());
        PrintNoted(line.words, kNoteIndent + 2);
      }
      PrintNoted(said[trouble.category], kNoteIndent);
    }
  }

  static void PrintNoted(const std::vector<std::wstring>& sentences, std::size_t indent) {
    for (const std::wstring& sentence : sentences)
      std::printf("%s\n", Indented(sentence, indent).c_str());
  }

  const std::vector<enmHardwareID> selection;
  const std::chrono::steady_clock::time_point begun = std::chrono::steady_clock::now();
  std::size_t position = 0;
  bool entered = false;
  std::wstring heading;
  std::vector<std::wstring> headingWords;                   // last shown below it
  std::map<enmHardwareID, std::vector<std::wstring>> said;  // by tests that are no items
  bool summed = false;
  std::vector<Trouble> troubles;
  LiveLine live;
};

}  // namespace

std::unique_ptr<RunPrinter> MakeTextRunPrinter(std::vector<enmHardwareID> selection) {
  return std::make_unique<TextRunPrinter>(std::move(selection));
}

}  // namespace cli
