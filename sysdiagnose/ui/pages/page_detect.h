#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/duilib/controls/list.h"
#include "sysdiagnose/base/hardware_id.h"
#include "sysdiagnose/engine/diagnose_engine.h"
#include "sysdiagnose/ui/items/ctl_detect_item.h"
#include "sysdiagnose/ui/page/page_run.h"
#include "sysdiagnose/ui/pages/content_page.h"
#include "sysdiagnose/ui/pages/detect_look.h"

namespace orv::sysdiagnose {

/// The detect page: a diagnosis while it runs, each test when the row of the one before has
/// unfolded, then its result and its repairs. UI thread only.
class PageDetect final : public ContentPage {
 public:
  PageDetect();
  ~PageDetect() = default;

  void InitPage() override;

  /// Begins a diagnosis of these categories. To be called before the page is shown.
  void StartDetect(std::vector<enmHardwareID> categories);

 private:
  /// Categories that have come out, and whether normal.
  using Verdicts = std::vector<std::pair<enmHardwareID, bool>>;

  void OnClick(DuiLib::TNotifyUI& notification) override;
  void OnTimer(DuiLib::TNotifyUI& notification) override;
  void OnLink(DuiLib::TNotifyUI& notification) override;
  void OnGone() override;

  /// False, with nothing done, when the list or a bar is missing.
  bool Show(DetectState value);
  void ShowDetecting();
  void ShowSummary();

  // A detection run
  void StartEngine();
  void OnItemStart(enmHardwareID id, const tagHardwareDetectInfo& item, const Verdicts& verdicts);
  void OnItemResult(enmHardwareID id, const tagDetectItemDetail& detail);
  void OnUnfolded();
  void OnVerdicts(const Verdicts& verdicts);
  void OnFinished(int abnormal, int firstAbnormal);
  void OnEndedEarly();
  void AskForLogs();
  void OnLogsAvailable(bool available);

  // A repair run
  void Repair();
  RepairMap ChosenRepairs() const;
  RepairCallbacks TellRepairs();
  void OnRepairStart(enmHardwareID id);
  void OnRepairResult(enmHardwareID id, bool repaired, bool restart);
  void OnRepairVerdict(enmHardwareID id, bool repaired);
  void OnRepaired(bool all, int firstFaulty);
  /// Asks for the restart that a repair needs. False when the page is done with the run by then.
  bool AskForRestart();

  void Cancel();
  void SetStopping(bool isStopping);
  void StopTimers();
  /// Null while the category has no item.
  CtlDetectItem* ShownItem(enmHardwareID id);
  CtlDetectItem* ItemOf(enmHardwareID id);
  CtlDetectItem* ItemAt(int position);
  bool CanRepair() const;
  /// The scroll position at which an item is the first one.
  int TopOf(const CtlDetectItem* item);
  void Unfold();
  void ScrollBack();
  void ScrollSmoothly();

  DiagnoseEngine engine;
  std::optional<PageRun> run;
  DetectState state = DetectState::Detecting;
  std::vector<enmHardwareID> selection;
  std::map<enmHardwareID, CtlDetectItem> items;
  enmHardwareID current = kNoHardware;
  int abnormalCount = 0;
  int testedCount = 0;       // categories
  int failedRepairs = 0;     // of the repair run begun last
  bool isActive = false;     // a run goes on, as far as the page has heard
  bool isUnfolding = false;  // a row waits to be shown
  bool areLogsAvailable = false;
  bool needsRestart = false;
  const CtlDetectItem* scrollTarget = nullptr;  // null for the top
  int scrollBackStep = 0;
  int smoothStepsLeft = 0;
  DuiLib::CListUI* list = nullptr;
};

}  // namespace orv::sysdiagnose
