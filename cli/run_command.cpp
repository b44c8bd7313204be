#include <optional>
#include <set>

#include "cli/commands.h"
#include "cli/interruptible.h"
#include "cli/item_teller.h"
#include "cli/left_out.h"
#include "cli/repair_choice.h"
#include "cli/report_file.h"
#include "cli/run_printer.h"
#include "platform/concurrency/task.h"
#include "platform/util/process_store.h"
#include "sysdiagnose/catalogue/detect_catalogue.h"
#include "sysdiagnose/engine/diagnose_engine.h"
#include "sysdiagnose/records/history_store.h"

namespace cli {

using namespace orv::sysdiagnose;

namespace {

// Empty for a record that the store has taken and gives back. The engine looks at neither; its last
// write is the record.
std::string WhyNotKept(const RunRecord& record) {
  std::string fault = util::StoreWriteFault();
  if (!fault.empty()) return fault;
  util::TakeStoreReadFault();
  if (IsHistoryRecordStored(record)) return {};
  fault = util::TakeStoreReadFault();
  return fault.empty() ? "the data store does not give the record back" : fault;
}

// One run of the terminal program: a detection, and repairs when they are asked for.
class Diagnosis {
 public:
  Diagnosis(std::vector<enmHardwareID> selected, RunPrinter& shownBy)
      : selection(std::move(selected)), printer(shownBy) {}

  void Detect() {
    engine.BeginDetectRun(
        selection,
        [this](enmHardwareID category, tagHardwareDetectInfo& info) {
          items.ItemStart(category, info);
        },
        [this](enmHardwareID category, tagDetectItemDetail& detail) {
          if (!detail.normal) troubled.insert(category);
          items.ItemResult(category, detail);
        },
        [this](enmHardwareID category, const std::wstring& text) {
          printer.CategoryUnknown(category, text);
        },
        [this](int, enmHardwareID category, tagRepairItemInfo& offer) {
          printer.RepairOffer(category, offer);
        },
        [this] { OnCancelled(); },
        [this](int& abnormal, int& firstAbnormal) {
          items.End();
          printer.Finished(abnormal, firstAbnormal);
        },
        [this](const std::string& error) { OnFailed(error); });
    WaitForEnd();
  }

  void Repair(RepairMap repairs) {
    RepairCallbacks callbacks;
    callbacks.categoryStart = [this](int position, enmHardwareID category) {
      printer.RepairCategoryStart(position, category);
    };
    callbacks.repairStart = [this](int position, enmHardwareID category,
                                   tagRepairItemInfo& repair) {
      printer.RepairStart(position, category, repair);
    };
    callbacks.repairResult = [this](int position, enmHardwareID category, tagRepairItemInfo& repair,
                                    HardwareDetect::tagHARDWARE_REPAIR_RESULT& result) {
      printer.RepairResult(position, category, repair, result);
    };
    callbacks.categoryResult = [this](bool repaired, enmHardwareID category, int position) {
      if (repaired) troubled.erase(category);
      printer.RepairCategoryResult(repaired, category, position);
    };
    callbacks.cancelled = [this] { OnCancelled(); };
    callbacks.finished = [this](bool all, bool restart, int firstFaulty) {
      printer.RepairFinished(all, restart, firstFaulty);
    };
    engine.BeginRepairRun(std::move(repairs), std::move(callbacks),
                          [this](const std::string& error) { OnFailed(error); });
    WaitForEnd();
  }

  /// Instead of a repair.
  void Cancel() { OnCancelled(); }

  bool CanRepair() const { return ended == kAllNormal; }
  const RepairMap& OfferedRepairs() const { return engine.OfferedRepairs(); }

  ExitStatus Status() const {
    if (ended != kAllNormal) return ended;
    if (!troubled.empty() || engine.Record().failCount != 0) return kSomethingAbnormal;
    return isKept ? kAllNormal : kWrongUsage;
  }

 private:
  void OnCancelled() {
    ended = kCancelled;
    items.End();
    printer.Cancelled();
  }

  void OnFailed(const std::string& error) {
    ended = kRunFailed;
    items.End();
    printer.Failed(error);
  }

  void WaitForEnd() {
    interruptible.Cancels([this] { engine.CancelDetect(); });
    engine.Wait();
    if (ended == kRunFailed) return;
    const std::string fault = WhyNotKept(engine.Record());
    if (!fault.empty()) isKept = false;
    printer.Record(engine.Record(), fault);
  }

  const std::vector<enmHardwareID> selection;
  RunPrinter& printer;
  ItemTeller items{printer};
  std::set<enmHardwareID> troubled;  // categories with an abnormal item, disks included
  ExitStatus ended = kAllNormal;     // how the last run came to an end
  bool isKept = true;                // every record, read back
  DiagnoseEngine engine;
  Interruptible interruptible;  // after the engine that it cancels
};

}  // namespace

int RunDiagnosis(const Arguments& arguments) {
  DetectCatalogue::Instance();
  concurrency::wait_until_idle();  // the summary then carries the device texts
  const std::vector<enmHardwareID> selection = CategoriesToTest(arguments);

  std::unique_ptr<RunPrinter> printer =
      arguments.json ? MakeJsonRunPrinter() : MakeTextRunPrinter(selection);
  RunReport report;
  if (!arguments.reportFile.empty())
    printer = MakeReportCollector(selection, report, std::move(printer));
  Diagnosis diagnosis(selection, *printer);
  diagnosis.Detect();
  if (arguments.repair && diagnosis.CanRepair()) {
    std::optional<RepairMap> chosen = ChooseRepairs(arguments, diagnosis.OfferedRepairs());
    if (!chosen)
      diagnosis.Cancel();
    else if (!chosen->empty())
      diagnosis.Repair(*std::move(chosen));
  }
  if (!arguments.reportFile.empty()) WriteReport(report, arguments);
  return diagnosis.Status();
}

}  // namespace cli
