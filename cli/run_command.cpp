#include <atomic>

#include "cli/commands.h"
#include "cli/report_file.h"
#include "cli/run_printer.h"
#include "platform/concurrency/task.h"
#include "platform/os/interrupt.h"
#include "sysdiagnose/catalogue/detect_catalogue.h"
#include "sysdiagnose/engine/diagnose_engine.h"

namespace cli {

using namespace orv::sysdiagnose;

namespace {

std::atomic<DiagnoseEngine*> interruptible = nullptr;

void CancelRun() {
  if (DiagnoseEngine* engine = interruptible) engine->CancelDetect();
}

}  // namespace

int RunDiagnosis(const Arguments& arguments) {
  const std::vector<enmHardwareID> selection = SelectedCategories(arguments);
  concurrency::wait_until_idle();  // the summary then carries the device texts

  std::unique_ptr<RunPrinter> printer =
      arguments.json ? MakeJsonRunPrinter() : MakeTextRunPrinter(selection);
  RunReport report;
  if (!arguments.reportFile.empty())
    printer = MakeReportCollector(selection, report, std::move(printer));
  int status = kAllNormal;
  DiagnoseEngine engine;
  engine.BeginDetectRun(
      selection,
      [&](enmHardwareID category, tagHardwareDetectInfo& info) {
        printer->ItemStart(category, info);
      },
      [&](enmHardwareID category, tagDetectItemDetail& detail) {
        if (!detail.normal) status = kSomethingAbnormal;
        printer->ItemResult(category, detail);
      },
      [&](enmHardwareID category, const std::wstring& text) {
        printer->CategoryUnknown(category, text);
      },
      [&](int, enmHardwareID category, tagRepairItemInfo& offer) {
        printer->RepairOffer(category, offer);
      },
      [&] {
        status = kCancelled;
        printer->Cancelled();
      },
      [&](int& abnormal, int& firstAbnormal) {
        if (abnormal > 0) status = kSomethingAbnormal;
        printer->Finished(abnormal, firstAbnormal);
      },
      [&](const std::string& error) {
        status = kRunFailed;
        printer->Failed(error);
      });
  interruptible = &engine;
  os::OnInterrupt(&CancelRun, kCancelled);
  engine.Wait();
  interruptible = nullptr;
  if (status != kRunFailed) printer->Record(engine.Record());
  if (!arguments.reportFile.empty()) WriteReport(report, arguments);
  return status;
}

}  // namespace cli
