#include <algorithm>
#include <chrono>
#include <exception>
#include <optional>

#include "cli/commands.h"
#include "cli/interruptible.h"
#include "cli/item_teller.h"
#include "cli/left_out.h"
#include "cli/repair_choice.h"
#include "cli/report_file.h"
#include "cli/run_log.h"
#include "cli/run_printer.h"
#include "cli/texts.h"
#include "common/text.h"
#include "platform/machine/workloads/cut_short.h"
#include "platform/os/replace_file.h"
#include "platform/util/process_store.h"
#include "startup/program.h"
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
  return fault.empty() ? Message(L"NOT_READ_BACK") : fault;
}

// One run of the terminal program: a detection, and repairs when they are asked for.
class Diagnosis {
  using Clock = std::chrono::steady_clock;

 public:
  Diagnosis(std::vector<enmHardwareID> selected, RunPrinter& shownBy, RunVerdicts& noted)
      : selection(std::move(selected)), printer(shownBy), verdicts(noted) {}

  void Detect() {
    engine.BeginDetectRun(
        selection,
        [this](enmHardwareID category, tagHardwareDetectInfo& info) {
          EndCategories();
          items.ItemStart(category, info);
        },
        [this](enmHardwareID category, tagDetectItemDetail& detail) {
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
          EndCategories();
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
      if (repaired) verdicts.Repair(category);
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
    if (verdicts.CountOf(Verdict::Abnormal) != 0) return kSomethingAbnormal;
    return isKept ? kAllNormal : kWrongUsage;
  }

 private:
  void OnCancelled() {
    ended = kCancelled;
    EndCategories();
    printer.Cancelled();
  }

  void OnFailed(const std::string& error) {
    ended = kRunFailed;
    EndCategories();
    if (endedCategories < selection.size())
      items.EndCategory(selection[endedCategories], true, common::Utf8ToWide(error));
    printer.Failed(error);
  }

  // Those that the engine has done with since it was last looked at. On the run's thread.
  void EndCategories() {
    const RunRecord& record = engine.Record();
    const auto done = static_cast<std::size_t>(record.passCount + record.failCount);
    for (; endedCategories < done; ++endedCategories) {
      const enmHardwareID category = selection.at(endedCategories);
      const auto cell = static_cast<std::size_t>(std::ranges::find(kRecordOrder, category) -
                                                 kRecordOrder.begin());
      items.EndCategory(category,
                        cell == record.results.size() || record.results[cell] != kAbnormal);
      verdicts.Took(category, std::chrono::duration_cast<std::chrono::milliseconds>(
                                  Clock::now() - std::exchange(categoryBegan, Clock::now())));
    }
  }

  void WaitForEnd() {
    interruptible.Cancels([this] {
      engine.CancelDetect();
      machine::CutTestsShort(true);
    });
    engine.Wait();
    if (ended == kRunFailed) return;
    const std::string fault = WhyNotKept(engine.Record());
    if (!fault.empty()) isKept = false;
    Log();
    printer.Record(engine.Record(), fault);
  }

  // Without it the run is as good; only what builds on it later does without.
  void Log() const {
    const RunRecord& record = engine.Record();
    LoggedRun run{record.secondTime,
                  std::vector<int>(record.results.begin(), record.results.end()),
                  ended == kCancelled ? "cancelled" : "finished",
                  {}};
    for (const CategoryVerdict& each : verdicts.All())
      run.categories.push_back({each.category, each.verdict, each.isReached, each.took});
    try {
      LogRun(run);
    } catch (const std::exception& error) {
      startup::PrintError("sysdiagnose", error.what());
    }
  }

  const std::vector<enmHardwareID> selection;
  RunPrinter& printer;
  RunVerdicts& verdicts;
  ItemTeller items{printer, verdicts};
  std::size_t endedCategories = 0;  // of the selection
  Clock::time_point categoryBegan = Clock::now();
  ExitStatus ended = kAllNormal;  // how the last run came to an end
  bool isKept = true;             // every record, read back
  DiagnoseEngine engine;
  Interruptible interruptible;  // after the engine that it cancels
};

}  // namespace

int RunDiagnosis(const Arguments& arguments) {
  if (!arguments.singleItems.empty()) return RunSingleItems(arguments);
  // Before the run: what it takes minutes to find out must not be lost.
  if (!arguments.reportFile.empty()) os::RequireReplaceable(arguments.reportFile);
  const std::vector<enmHardwareID> selection = CategoriesToTest(arguments);

  RunVerdicts verdicts(selection);
  std::unique_ptr<RunPrinter> printer =
      arguments.json ? MakeJsonRunPrinter(verdicts) : MakeTextRunPrinter(selection, verdicts);
  RunReport report;
  if (!arguments.reportFile.empty())
    printer = MakeReportCollector(selection, report, std::move(printer));
  const auto writeReport = [&] {
    if (arguments.reportFile.empty()) return;
    report.verdicts = verdicts;
    WriteReport(report, arguments);
  };
  if (selection.empty()) {
    printer->Failed(NothingOffered());
    writeReport();
    return kRunFailed;
  }

  Diagnosis diagnosis(selection, *printer, verdicts);
  diagnosis.Detect();
  if (arguments.repair && diagnosis.CanRepair()) {
    std::optional<RepairMap> chosen = ChooseRepairs(arguments, diagnosis.OfferedRepairs());
    if (!chosen)
      diagnosis.Cancel();
    else if (!chosen->empty())
      diagnosis.Repair(*std::move(chosen));
  }
  writeReport();
  const ExitStatus status = diagnosis.Status();
  const bool isLacking = HasNamedCategories(arguments) && verdicts.CountOf(Verdict::NotTested) != 0;
  return status == kAllNormal && isLacking ? kNotTestedAsAsked : status;
}

}  // namespace cli
