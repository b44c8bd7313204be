#pragma once

#include "platform/duilib/window/window_impl_base.h"

namespace orv::sysdiagnose {

/// Asks whether to restart the computer after a repair that needs it, and asks the manager for it.
/// Its modal result is 1 in every case. UI thread only.
class RestartWnd : public DuiLib::WindowImplBase {
 public:
  DuiLib::CDuiString GetWindowClassName() const override { return L"SysdiagnoseRestartWnd"; }
  void OnCancel() override { Close(1); }

 protected:
  DuiLib::CDuiString GetSkinFile() const override { return L"layout/sysdiagnose_restart.xml"; }
  DuiLib::CDuiString GetSkinFolder() const override { return L"res/"; }
  const DuiLib::NotifyMap* GetMessageMap() const override { return &kMessageMap; }

 private:
  static const DuiLib::NotifyMapRow kMessageRows[];
  static const DuiLib::NotifyMap kMessageMap;

  void OnRestart(DuiLib::TNotifyUI&);
  void OnLater(DuiLib::TNotifyUI&) { OnCancel(); }
};

}  // namespace orv::sysdiagnose
