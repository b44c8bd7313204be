#include "sysdiagnose/engine/detect_run.h"

#include "sysdiagnose/engine/category_runner.h"
#include "sysdiagnose/engine/run_end.h"

namespace orv::sysdiagnose {

void DetectRun::Run() const {
  model->running = true;
  model->TakeDetectList();
  BeginRun(*objects);
  int firstAbnormal = -1;
  for (std::size_t i = 0; i < model->selection.size(); ++i) {
    if (stop.IsRequested()) return EndCancelledRun(*model, cancelled);
    const enmHardwareID category = model->selection[i];
    model->SetRunning(category);
    const CategoryOutcome outcome = RunCategory(category, *objects, callbacks);
    model->SetOutcome(category, outcome);
    if (verdict) verdict(category, outcome.normal);
    if (!outcome.normal && firstAbnormal == -1) firstAbnormal = static_cast<int>(i);
  }
  auto abnormal = static_cast<int>(model->record.failCount);
  EndFinishedRun(*model, [&] { finished(abnormal, firstAbnormal); });
}

}  // namespace orv::sysdiagnose
