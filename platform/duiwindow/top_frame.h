#pragma once

#include <wx/frame.h>

#include "platform/duilib/window/desktop.h"
#include "platform/duiwindow/canvas.h"

namespace duiwindow {

/// A window with the system's frame.
class TopFrame final : public DuiLib::TopWindow, private wxEvtHandler {
 public:
  TopFrame(DuiLib::CPaintManagerUI& content, const DuiLib::Placement& placement);
  ~TopFrame() override;

  void SetTitle(const DuiLib::CDuiString& title) override;
  void Show() override;
  void Raise() override;
  DuiLib::Placement GetPlacement() const override { return placement; }

 private:
  void Place(const DuiLib::Placement& wished);
  void FollowPlace();
  void OnClose(wxCloseEvent& event);
  void OnActivate(wxActivateEvent& event);
  void OnMoved(wxEvent& event);

  wxFrame* const frame;  // of the toolkit, which destroys it when its events are done
  Canvas* const canvas;
  DuiLib::Placement placement;
};

}  // namespace duiwindow
