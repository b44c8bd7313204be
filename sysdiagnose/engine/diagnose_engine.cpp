#include "sysdiagnose/engine/diagnose_engine.h"

#include <utility>

#include "sysdiagnose/engine/detect_run.h"
#include "sysdiagnose/engine/repair_run.h"

namespace orv::sysdiagnose {

DiagnoseEngine::DiagnoseEngine()
    : model(std::make_shared<RunModel>()), objects(std::make_shared<TestObjects>()) {}

void DiagnoseEngine::BeginDetectRun(std::vector<enmHardwareID> selection,
                                    ItemStartCallback itemStart, ItemResultCallback itemResult,
                                    CategoryUnknownCallback categoryUnknown,
                                    RepairOfferCallback repairOffer, CancelledCallback cancelled,
                                    DetectFinishedCallback finished, RunFailedCallback failed,
                                    CategoryVerdictCallback verdict) {
  RequireSet(itemStart, itemResult, categoryUnknown, repairOffer, cancelled, finished);
  model = std::make_shared<RunModel>();
  model->selection = std::move(selection);
  const DetectRun run{model,
                      objects,
                      stops.Begin(),
                      {std::move(itemStart), std::move(itemResult), std::move(categoryUnknown),
                       std::move(repairOffer)},
                      std::move(cancelled),
                      std::move(finished),
                      std::move(verdict)};
  Begin([run] { run.Run(); }, std::move(failed));
}

void DiagnoseEngine::BeginRepairRun(RepairMap repairs, RepairCallbacks callbacks,
                                    RunFailedCallback failed) {
  RequireSet(callbacks.categoryStart, callbacks.repairStart, callbacks.repairResult,
             callbacks.categoryResult, callbacks.cancelled, callbacks.finished);
  model->finished = false;
  RepairRun run(model, stops.Begin(), std::move(repairs), std::move(callbacks));
  Begin([run = std::move(run)]() mutable { run.Run(); }, std::move(failed));
}

void DiagnoseEngine::Begin(std::function<void()> body, RunFailedCallback failed) {
  task.Begin(std::move(body), [run = model, failed = std::move(failed)](const std::string& error) {
    run->running = false;
    if (failed) failed(error);
  });
}

}  // namespace orv::sysdiagnose
