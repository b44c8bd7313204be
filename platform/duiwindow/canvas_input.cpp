#include <wx/cursor.h>
#include <wx/toplevel.h>

#include "platform/duiwindow/canvas.h"
#include "platform/duiwindow/content_loop.h"
#include "platform/duiwindow/display.h"
#include "platform/duiwindow/keys.h"

// The part of the canvas that hears keyboard and pointer.
namespace duiwindow {

void Canvas::BindInput() {
  Bind(wxEVT_KEY_DOWN, &Canvas::OnKey, this);
  for (const auto& type : {wxEVT_LEFT_DOWN, wxEVT_LEFT_DCLICK, wxEVT_LEFT_UP, wxEVT_MOTION,
                           wxEVT_LEAVE_WINDOW, wxEVT_MOUSEWHEEL}) {
    Bind(type, &Canvas::OnPointer, this);
  }
  Bind(wxEVT_MOUSE_CAPTURE_LOST, [this](wxMouseCaptureLostEvent&) {
    ContentLoop::Instance().Do([this] {
      if (content != nullptr) content->OnPressLost();
    });
  });
}

void Canvas::OnKey(wxKeyEvent& event) {
  const auto key = KeyOf(event);
  bool taken = false;
  if (key) {
    ContentLoop::Instance().Do([&] { taken = content != nullptr && content->OnKey(*key); });
  }
  if (!taken) event.Skip();
}

void Canvas::OnPointer(wxMouseEvent& event) {
  if (event.GetEventType() == wxEVT_LEFT_DOWN) SetFocus();
  event.Skip(false);
  ContentLoop::Instance().Do([&] {
    if (content == nullptr) return;
    const DuiLib::Point point = ToPoints(event.GetPosition());
    if (event.GetEventType() == wxEVT_MOUSEWHEEL) return OnWheel(event);
    if (event.Leaving()) return content->OnMouseLeave();
    if (event.LeftDown() || event.LeftDClick()) return OnPress(point);
    if (event.LeftUp()) {
      if (HasCapture()) ReleaseMouse();
      content->OnMouseUp(point);
    } else {
      content->OnMouseMove(point);
    }
    if (content != nullptr) TellPointer(point);
  });
}

void Canvas::OnPress(DuiLib::Point point) {
  if (dragsAt && dragsAt(point)) {
    return DragWindow(*static_cast<wxTopLevelWindow*>(wxGetTopLevelParent(this)));
  }
  if (!HasCapture()) CaptureMouse();
  content->OnMouseDown(point);
}

// Fine wheels turn by less than a notch at a time.
void Canvas::OnWheel(wxMouseEvent& event) {
  const int notch = event.GetWheelDelta();
  if (event.GetWheelAxis() != wxMOUSE_WHEEL_VERTICAL || notch <= 0) return;
  wheelRest += event.GetWheelRotation();
  const int steps = wheelRest / notch;
  wheelRest -= steps * notch;
  if (steps != 0) content->OnWheel(ToPoints(event.GetPosition()), steps);
}

void Canvas::TellPointer(DuiLib::Point point) {
  const bool hand = content->IsLinkAt(point);
  if (hand != showsHand) SetCursor(hand ? wxCursor(wxCURSOR_HAND) : wxNullCursor);
  showsHand = hand;
  DuiLib::CDuiString fresh = content->GetHint(point);
  if (fresh == hint) return;
  hint = std::move(fresh);
  if (hint.empty()) return UnsetToolTip();
  SetToolTip(wxString(hint));
}

}  // namespace duiwindow
