#pragma once

#include <vector>

#include "sysdiagnose/base/hardware_id.h"
#include "sysdiagnose/engine/quiet_runs.h"
#include "sysdiagnose/ui/page/page_type.h"
#include "sysdiagnose/ui/page/sysdiagnose_page.h"
#include "sysdiagnose/ui/pages/page_archievement.h"
#include "sysdiagnose/ui/pages/page_detect.h"
#include "sysdiagnose/ui/pages/page_scan.h"

namespace orv::sysdiagnose {

/// The page host: the tab of this plugin in the host's window. It holds the content pages, moves
/// the user between them, and runs what the host's main page asks for. UI thread only.
class PageIndex final : public SysdiagnosePage {
 public:
  /// The one of this process, made on first use. Any thread.
  static PageIndex& Instance();

  PageIndex();
  ~PageIndex() = default;

  /// Places the content pages, shows the history page and takes the host's requests.
  void InitPage() override;

  /// Prepares a page and shows it.
  void SwitchPage(enumPageType type);
  /// What the detect page tests when it is shown next.
  void SetSelectedHardware(std::vector<enmHardwareID>& selected);

 private:
  void OnTabSelectIn(DuiLib::TNotifyUI& notification) override;
  void OnGone() override;

  void TakeHostRequests();

  // They go from the last to the first.
  PageArchievement archievementPage;
  PageScan scanPage;
  PageDetect detectPage;
  std::vector<enmHardwareID> selectedHardware;
  QuietRuns quietRuns;
};

}  // namespace orv::sysdiagnose
