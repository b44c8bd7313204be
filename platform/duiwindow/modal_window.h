#pragma once

#include <wx/dialog.h>

#include "platform/duilib/window/window_impl_base.h"
#include "platform/duiwindow/canvas.h"

namespace duiwindow {

/// A window without a frame of the system's, around the content of a WindowImplBase.
class ModalWindow final : public DuiLib::NativeWindow, private wxEvtHandler {
 public:
  explicit ModalWindow(DuiLib::WindowImplBase& around);
  ~ModalWindow() override;

  /// RunModal shows it.
  void Show() override {}
  void Centre() override;
  void RunModal() override;
  void EndModal() override;
  DuiLib::Point ToClient(DuiLib::Point screen) const override;

  /// As when the person closes it.
  void Cancel();

 private:
  void OnClose(wxCloseEvent&) { Cancel(); }
  void RoundCorners();

  DuiLib::WindowImplBase& window;
  const DuiLib::Size wishedSize;  // that its content asked for, before it is given that of a canvas
  wxDialog* const dialog;         // of the toolkit, which destroys it when its events are done
  Canvas* const canvas;
};

}  // namespace duiwindow
