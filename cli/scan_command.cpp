#include <cstdio>

#include "cli/commands.h"
#include "cli/interruptible.h"
#include "cli/json_line.h"
#include "cli/terminal_text.h"
#include "cli/texts.h"
#include "common/text.h"
#include "sysdiagnose/engine/hardware_scan.h"

namespace cli {

using namespace orv::sysdiagnose;

namespace {

void PrintLine(const char* type) {
  const JsonLine line(type);
}

class ScanPrinter {
 public:
  explicit ScanPrinter(bool printsJson) : json(printsJson) {}

  void Row(enmHardwareID category, const tagHardwareDetailInfo& row) {
    if (json) {
      JsonLine("row")
          .Add("category", static_cast<std::int64_t>(category))
          .Add("label", row.label)
          .Add("value", row.value)
          .Add("kind", std::int64_t{row.kind});
      return;
    }
    if (!entered || category != current) {
      entered = true;
      current = category;
      std::puts(Coloured(Colour::Bold, Printable(CaptionOf(category))).c_str());
    }
    if (row.kind == tagHardwareDetailInfo::kLabelledRow)
      std::printf("  %s: %s\n", Printable(row.label).c_str(), Printable(row.value).c_str());
    else
      std::puts("");
  }

  void Complete(enmHardwareID last) const {
    if (json) {
      JsonLine("complete").Add("category", static_cast<std::int64_t>(last));
      PrintLine("finished");
    } else if (!entered) {
      std::puts(NothingOffered().c_str());
    }
  }

  void Ended() const {
    if (json) {
      PrintLine("ended");
      PrintLine("cancelled");
    } else {
      std::puts(Line(L"SCAN_CANCELLED").c_str());
    }
  }

  void Failed(const std::string& error) const {
    if (json)
      JsonLine("failed").Add("error", error);
    else
      std::puts(Line(L"SCAN_FAILED", {common::Utf8ToWide(error)}).c_str());
  }

 private:
  const bool json;
  bool entered = false;
  enmHardwareID current{};
};

}  // namespace

int RunScan(const Arguments& arguments) {
  ScanPrinter printer(arguments.json);
  int status = kAllNormal;
  HardwareScan scan;
  Interruptible interruptible;
  scan.Start(
      [&](enmHardwareID category, tagHardwareDetailInfo& row) {
        printer.Row(category, row);
        return true;
      },
      [&](enmHardwareID last) { printer.Complete(last); },
      [&] {
        status = kCancelled;
        printer.Ended();
      },
      [&](const std::string& error) {
        status = kRunFailed;
        printer.Failed(error);
      });
  interruptible.Cancels([&scan] { scan.Cancel(); });
  scan.Wait();
  return status;
}

}  // namespace cli
