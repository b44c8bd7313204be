#include <algorithm>
#include <cstdio>

#include "cli/commands.h"
#include "cli/live_line.h"
#include "cli/run_printer.h"
#include "cli/terminal_text.h"
#include "common/text.h"

namespace cli {

using namespace orv::sysdiagnose;

namespace {

struct FailedItem {
  enmHardwareID category;
  std::wstring text;
};

class TextRunPrinter final : public RunPrinter {
 public:
  explicit TextRunPrinter(std::vector<enmHardwareID> selected) : selection(std::move(selected)) {}

  void ItemStart(enmHardwareID category, const tagHardwareDetectInfo& info) override {
    ShowHeading();
    EnterCategory(category);
    announced = info.caption;
    line.Show("[" + std::to_string(position + 1) + "/" + std::to_string(selection.size()) + "] " +
              Printable(CaptionOf(category)) + "  " + Printable(info.caption) + "…");
  }

  void ItemResult(enmHardwareID category, const tagDetectItemDetail& detail) override {
    const std::string mark =
        detail.normal ? Coloured(Colour::Green, "ok      ") : Coloured(Colour::Red, "ABNORMAL");
    announced.clear();
    if (!detail.caption.empty()) line.PrintAbove("  " + mark + "  " + Printable(detail.caption));
    if (detail.normal) return;
    const std::wstring device = heading.empty() ? heading : heading + L", ";
    Note(category, device + detail.caption + Dash(detail.hint));
  }

  void CategoryUnknown(enmHardwareID category, const std::wstring& text) override {
    line.PrintAbove("  " + Coloured(Colour::Yellow, Printable(text)));
    Note(category, text);
  }

  void RepairOffer(enmHardwareID category, const tagRepairItemInfo& offer) override {
    Note(category, offer.text);
  }

  void Cancelled() override { Close("The run was cancelled; what was tested has been kept."); }

  void Finished(int abnormal, int) override {
    Close(abnormal == 0 && failures.empty() ? Coloured(Colour::Green, "Everything is normal.")
                                            : "Found:");
  }

  void Failed(const std::string& error) override {
    Close(Coloured(Colour::Red, "The run failed: ") + Printable(common::Utf8ToWide(error)));
  }

  void Record(const RunRecord& record) override {
    for (std::size_t i = 0; i < record.results.size(); ++i)
      if (record.results[i] == kAbnormal && !IsNoted(kRecordOrder[i]))
        std::printf("  %s\n", Coloured(Colour::Red, Printable(CaptionOf(kRecordOrder[i]))).c_str());
    std::printf("\n%lld normal, %lld abnormal (%s)\n", static_cast<long long>(record.passCount),
                static_cast<long long>(record.failCount), record.dateTime.c_str());
  }

 private:
  static std::wstring Dash(const std::wstring& text) {
    return text.empty() ? std::wstring() : L" - " + text;
  }

  // An announcement without a result is the heading of what follows: the name of a disk.
  void ShowHeading() {
    if (announced.empty()) return;
    heading = std::move(announced);
    announced.clear();
    line.PrintAbove("  " + Printable(heading));
  }

  // Categories come in the order of the selection; one that shows nothing is passed over.
  void EnterCategory(enmHardwareID category) {
    if (entered && selection[position] == category) return;
    const auto from = selection.begin() + static_cast<std::ptrdiff_t>(entered ? position + 1 : 0);
    position =
        static_cast<std::size_t>(std::find(from, selection.end(), category) - selection.begin());
    entered = true;
    heading.clear();
    line.PrintAbove(Coloured(Colour::Bold, Printable(CaptionOf(category))));
  }

  void Note(enmHardwareID category, const std::wstring& text) {
    failures.push_back({category, text});
  }

  bool IsNoted(enmHardwareID category) const {
    return std::any_of(failures.begin(), failures.end(),
                       [category](const FailedItem& item) { return item.category == category; });
  }

  void Close(const std::string& verdict) {
    ShowHeading();
    line.Clear();
    std::printf("\n%s\n", verdict.c_str());
    for (const FailedItem& failure : failures)
      std::printf("  %s: %s\n",
                  Coloured(Colour::Red, Printable(CaptionOf(failure.category))).c_str(),
                  Printable(failure.text).c_str());
  }

  const std::vector<enmHardwareID> selection;
  std::size_t position = 0;
  bool entered = false;
  std::wstring announced;  // without a result so far
  std::wstring heading;
  std::vector<FailedItem> failures;
  LiveLine line;
};

}  // namespace

std::unique_ptr<RunPrinter> MakeTextRunPrinter(std::vector<enmHardwareID> selection) {
  return std::make_unique<TextRunPrinter>(std::move(selection));
}

}  // namespace cli
