#include "sysdiagnose/engine/run_end.h"

#include "sysdiagnose/records/history_store.h"
#include "sysdiagnose/records/ipc_helper.h"

namespace orv::sysdiagnose {

void EndCancelledRun(RunModel& model, const std::function<void()>& cancelled) {
  SaveHistoryRecord(model.record);
  cancelled();
  model.running = false;
}

void EndFinishedRun(RunModel& model, const std::function<void()>& finished) {
  model.finished = true;
  DiagnoseSummary summary = model.Summary();
  IPCHelper::Instance().PostSummary(summary, IPCHelper::ModeRun);
  SaveHistoryRecord(model.record);
  finished();
  model.running = false;
}

}  // namespace orv::sysdiagnose
