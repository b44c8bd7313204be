#include <algorithm>
#include <chrono>
#include <cstdio>
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

constexpr const char* kCouldNotBeTested = "  (could not be tested)";

// What the closing summary says of one category.
struct Trouble {
  enmHardwareID category;
  std::vector<std::wstring> lines;
  bool repairOffered = false;
};

class TextRunPrinter final : public RunPrinter {
 public:
  explicit TextRunPrinter(std::vector<enmHardwareID> selected) : selection(std::move(selected)) {}

  void ItemStart(enmHardwareID category, const tagHardwareDetectInfo& info) override {
    ShowHeading(entered && selection[position] == category ? "" : kCouldNotBeTested);
    EnterCategory(category);
    announced = info.caption;
    live.Show("[" + std::to_string(position + 1) + "/" + std::to_string(selection.size()) + "] " +
              Printable(CaptionOf(category)) + "  " + Printable(info.caption) + "…");
  }

  void ItemResult(enmHardwareID category, const tagDetectItemDetail& detail) override {
    announced.clear();
    if (detail.caption.empty()) return;
    live.PrintAbove(
        "  " +
        (detail.normal ? Coloured(Colour::Green, "ok      ") : Coloured(Colour::Red, "ABNORMAL")) +
        "  " + Printable(detail.caption));
    if (!detail.normal)
      Note(category, heading.empty() ? detail.caption : heading + L", " + detail.caption,
           detail.hint);
  }

  void CategoryUnknown(enmHardwareID category, const std::wstring& text) override {
    live.PrintAbove("            " + Coloured(Colour::Yellow, Printable(text)));
    Note(category, text, {});
  }

  void RepairOffer(enmHardwareID category, const tagRepairItemInfo&) override {
    TroubleOf(category).repairOffered = true;
  }

  void Cancelled() override {
    End();
    std::puts("\nThe run was cancelled.");
  }

  void Finished(int, int) override { End(); }

  void Failed(const std::string& error) override {
    End();
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

  // An announcement without a result is the heading of what follows: the name of a disk.
  void ShowHeading(const char* remark) {
    if (announced.empty()) return;
    heading = std::exchange(announced, {});
    live.PrintAbove("  " + Printable(heading) + remark);
  }

  Trouble& TroubleOf(enmHardwareID category) {
    const auto known =
        std::find_if(troubles.begin(), troubles.end(),
                     [category](const Trouble& trouble) { return trouble.category == category; });
    if (known != troubles.end()) return *known;
    return troubles.emplace_back(Trouble{category, {}});
  }

  void Note(enmHardwareID category, const std::wstring& what, const std::wstring& hint) {
    std::wstring line = hint.empty() ? what : what + L": " + hint;
    std::vector<std::wstring>& lines = TroubleOf(category).lines;
    if (std::count(lines.begin(), lines.end(), line) == 0) lines.push_back(std::move(line));
  }

  void End() {
    ShowHeading(kCouldNotBeTested);
    live.Clear();
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
      for (const std::wstring& line : trouble.lines)
        std::printf("    %s\n", Printable(line).c_str());
    }
  }

  const std::vector<enmHardwareID> selection;
  const std::chrono::steady_clock::time_point begun = std::chrono::steady_clock::now();
  std::size_t position = 0;
  bool entered = false;
  std::wstring announced;  // while it has no result
  std::wstring heading;
  bool summed = false;
  std::vector<Trouble> troubles;
  LiveLine live;
};

}  // namespace

std::unique_ptr<RunPrinter> MakeTextRunPrinter(std::vector<enmHardwareID> selection) {
  return std::make_unique<TextRunPrinter>(std::move(selection));
}

}  // namespace cli
