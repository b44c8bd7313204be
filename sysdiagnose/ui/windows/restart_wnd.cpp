#include "sysdiagnose/ui/windows/restart_wnd.h"

#include "sysdiagnose/records/requests.h"

namespace orv::sysdiagnose {

const DuiLib::NotifyMapRow RestartWnd::kMessageRows[] = {
    DuiLib::OnNotify(DuiLib::kNotifyClick, L"btnRestart", &RestartWnd::OnRestart),
    DuiLib::OnNotify(DuiLib::kNotifyClick, L"btnCancel", &RestartWnd::OnLater),
    {}};
const DuiLib::NotifyMap RestartWnd::kMessageMap{nullptr, kMessageRows};

void RestartWnd::OnRestart(DuiLib::TNotifyUI&) {
  PostRequest(Request::Restart);
  Close(1);
}

}  // namespace orv::sysdiagnose
