#include "sysdiagnose/engine/diagnose_engine.h"

#include <algorithm>
#include <functional>
#include <utility>

#include "sysdiagnose/base/log.h"
#include "sysdiagnose/engine/category_runner.h"
#include "sysdiagnose/records/history_store.h"
#include "sysdiagnose/records/ipc_helper.h"

namespace orv::sysdiagnose {
namespace {

template <typename... Callbacks>
void RequireSet(const Callbacks&... callbacks) {
  if (!(static_cast<bool>(callbacks) && ...)) throw std::bad_function_call();
}

// One detection run; owns all it needs.
struct DetectRun {
  std::shared_ptr<RunModel> model;
  std::shared_ptr<TestObjects> objects;
  CategoryCallbacks callbacks;
  DiagnoseEngine::CancelledCallback cancelled;
  DiagnoseEngine::FinishedCallback finished;
  DiagnoseEngine::FailedCallback failed;

  void Run();
  bool RunSelected(enmHardwareID category);
  void Cancel();
  void Finish(int firstAbnormal);
  void Conclude(const concurrency::task<void>& run);
};

void DetectRun::Run() {
  model->running = true;
  model->TakeDetectList();
  int firstAbnormal = -1;
  for (std::size_t i = 0; i < model->selection.size(); ++i) {
    if (model->cancelRequested) return Cancel();
    if (!RunSelected(model->selection[i]) && firstAbnormal == -1)
      firstAbnormal = static_cast<int>(i);
  }
  Finish(firstAbnormal);
}

bool DetectRun::RunSelected(enmHardwareID category) {
  CategoryOutcome outcome;
  CategoryCallbacks observed = callbacks;
  observed.itemResult = [&](enmHardwareID id, tagDetectItemDetail& detail) {
    if (!detail.normal && outcome.text.empty()) outcome.text = detail.hint;
    callbacks.itemResult(id, detail);
  };
  observed.repairOffer = [&](int number, enmHardwareID id, tagRepairItemInfo& offer) {
    outcome.repairable = true;
    callbacks.repairOffer(number, id, offer);
  };
  model->SetRunning(category);
  outcome.normal = RunCategory(category, *objects, observed);
  model->SetOutcome(category, outcome);
  return outcome.normal;
}

void DetectRun::Cancel() {
  SaveHistoryRecord(model->record);
  cancelled();
  model->cancelRequested = false;
  model->running = false;
}

void DetectRun::Finish(int firstAbnormal) {
  model->finished = true;
  DiagnoseSummary summary = model->Summary();
  IPCHelper::Instance().PostSummary(summary, IPCHelper::ModeRun);
  SaveHistoryRecord(model->record);
  auto abnormal = static_cast<int>(model->record.failCount);
  finished(abnormal, firstAbnormal);
  model->running = false;
}

// Runs on the continuation of the run's task.
void DetectRun::Conclude(const concurrency::task<void>& run) {
  try {
    run.get();
  } catch (...) {
    const std::string error = common::DescribeCurrentException();
    SYSDIAGNOSE_LOG_ERROR("The run ended with an error: " + error +
                          "(orv::sysdiagnose::DetectRun::Conclude)");
    model->running = false;
    if (failed) failed(error);
  }
}

}  // namespace

DiagnoseEngine::DiagnoseEngine()
    : model(std::make_shared<RunModel>()), objects(std::make_shared<TestObjects>()) {}

void DiagnoseEngine::BeginDetectRun(std::vector<enmHardwareID> selection,
                                    ItemStartCallback itemStart, ItemResultCallback itemResult,
                                    CategoryUnknownCallback categoryUnknown,
                                    RepairOfferCallback repairOffer, CancelledCallback cancelled,
                                    FinishedCallback finished, FailedCallback failed) {
  RequireSet(itemStart, itemResult, categoryUnknown, repairOffer, cancelled, finished);
  model = std::make_shared<RunModel>();
  model->selection = std::move(selection);
  const auto run =
      std::make_shared<DetectRun>(DetectRun{model,
                                            objects,
                                            {std::move(itemStart), std::move(itemResult),
                                             std::move(categoryUnknown), std::move(repairOffer)},
                                            std::move(cancelled),
                                            std::move(finished),
                                            std::move(failed)});

  // A run begun in the instant before the last one has ended waits for it.
  const auto body = task.is_done() ? concurrency::create_task([run] { run->Run(); })
                                   : task.then([run](const auto&) { run->Run(); });
  task = body.then([run](const auto& ended) { run->Conclude(ended); });
}

}  // namespace orv::sysdiagnose
