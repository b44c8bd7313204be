#include "sysdiagnose/engine/hardware_scan.h"

#include <utility>
#include <vector>

#include "sysdiagnose/catalogue/detect_catalogue.h"
#include "sysdiagnose/records/report_event.h"

namespace orv::sysdiagnose {

// One scan; owns all it needs.
struct HardwareScan::Scan {
  std::shared_ptr<State> state;
  RunStops::Token stop;
  InfoRowCallback onRow;
  CompleteCallback complete;
  EndedCallback ended;

  void Run() const {
    state->running = true;
    const std::vector<tagDetectItem> items = DetectCatalogue::Instance().items;
    std::vector<std::uint32_t> found;
    for (const tagDetectItem& item : items) {
      if (stop.IsRequested()) return End();
      if (static_cast<std::int32_t>(item.id) >= kHardwareIdCount) continue;
      found.push_back(CollectInformation(item.id, onRow) ? 1 : 0);
    }
    complete(items.empty() ? static_cast<enmHardwareID>(-1) : items.back().id);
    SendReportEvent(ReportEvent::HardwareScanned, JoinNumbers(found, ','));
    state->running = false;
  }

  void End() const {
    ended();
    state->running = false;
  }
};

HardwareScan::HardwareScan() : state(std::make_shared<State>()) {}

void HardwareScan::Start(InfoRowCallback onRow, CompleteCallback complete, EndedCallback ended,
                         RunTask::FailedCallback failed) {
  RequireSet(onRow, complete, ended);
  state = std::make_shared<State>();
  const Scan scan{state, stops.Begin(), std::move(onRow), std::move(complete), std::move(ended)};
  task.Begin([scan] { scan.Run(); },
             [scanState = state, failed = std::move(failed)](const std::string& error) {
               scanState->running = false;
               if (failed) failed(error);
             });
}

}  // namespace orv::sysdiagnose
