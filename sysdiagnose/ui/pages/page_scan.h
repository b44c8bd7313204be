#pragma once

#include <functional>
#include <map>
#include <optional>
#include <vector>

#include "platform/duilib/controls/list.h"
#include "sysdiagnose/base/hardware_id.h"
#include "sysdiagnose/engine/hardware_scan.h"
#include "sysdiagnose/ui/items/ctl_scan_item.h"
#include "sysdiagnose/ui/page/page_run.h"
#include "sysdiagnose/ui/pages/content_page.h"

namespace orv::sysdiagnose {

/// The scan page: lists the machine's hardware category by category, each row when the one before
/// has unfolded, and then asks what to test. UI thread only.
class PageScan final : public ContentPage {
 public:
  using SelectHardwareCallback = std::function<void(std::vector<enmHardwareID>&)>;

  PageScan();
  ~PageScan() = default;

  void SetSelectHardware(SelectHardwareCallback callback) { selectHardware = std::move(callback); }

  void InitPage() override;

  /// Begins a scan. To be called before the page is shown.
  void EnterScan();

 private:
  void OnClick(DuiLib::TNotifyUI& notification) override;
  void OnTimer(DuiLib::TNotifyUI& notification) override;
  void OnSelectChanged(DuiLib::TNotifyUI& notification) override;
  void OnGone() override;

  void ShowScanning();
  void ShowScanned();
  void StartScanner();

  void OnRow(enmHardwareID id, const tagHardwareDetailInfo& row);
  CtlScanItem* ItemOf(enmHardwareID id);
  void OnUnfolded();
  void OnComplete();
  void OnEnded();

  void Cancel();
  void SetStopping(bool isStopping);
  void Detect();
  std::vector<enmHardwareID> Chosen() const;
  void ShowChosen();

  HardwareScan scanner;
  std::optional<PageRun> run;
  std::map<enmHardwareID, CtlScanItem> items;
  enmHardwareID current = kNoHardware;
  bool isScanning = false;
  bool isUnfolding = false;  // a row waits to be shown
  int scrollBackStep = 0;
  DuiLib::CListUI* list = nullptr;
  SelectHardwareCallback selectHardware;
};

}  // namespace orv::sysdiagnose
