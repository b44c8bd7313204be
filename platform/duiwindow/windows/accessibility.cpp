#include "platform/duiwindow/accessibility.h"

#include <wx/access.h>

#include <algorithm>
#include <vector>

#include "platform/duilib/window/told_control.h"
#include "platform/duiwindow/canvas.h"

namespace duiwindow {
namespace {

using DuiLib::CControlUI;
using DuiLib::ToldControl;
using DuiLib::ToldRole;

struct Row {
  ToldRole role;
  wxAccRole told;
};

constexpr Row kRoles[] = {
    {ToldRole::kText, wxROLE_SYSTEM_STATICTEXT},
    {ToldRole::kLink, wxROLE_SYSTEM_LINK},
    {ToldRole::kButton, wxROLE_SYSTEM_PUSHBUTTON},
    {ToldRole::kCheckBox, wxROLE_SYSTEM_CHECKBUTTON},
    {ToldRole::kChoice, wxROLE_SYSTEM_RADIOBUTTON},
    {ToldRole::kList, wxROLE_SYSTEM_LIST},
    {ToldRole::kRow, wxROLE_SYSTEM_LISTITEM},
};

// The canvas is child 0; the told controls are numbered from 1.
class CanvasAccessible final : public wxAccessible {
 public:
  explicit CanvasAccessible(Canvas& of) : wxAccessible(&of), canvas(of) {}

  wxAccStatus GetChildCount(int* count) override {
    *count = static_cast<int>(Told().size());
    return wxACC_OK;
  }

  wxAccStatus GetChild(int id, wxAccessible** child) override {
    *child = id == wxACC_SELF ? this : nullptr;
    return id == wxACC_SELF ? wxACC_OK : wxACC_FALSE;
  }

  wxAccStatus GetName(int id, wxString* name) override {
    return Tell(id, [&](const ToldControl& told) { *name = wxString(told.name); });
  }

  wxAccStatus GetRole(int id, wxAccRole* role) override {
    return Tell(id, [&](const ToldControl& told) {
      *role = std::find_if(std::begin(kRoles), std::end(kRoles), [&](const Row& row) {
                return row.role == told.role;
              })->told;
    });
  }

  wxAccStatus GetState(int id, long* state) override {
    return Tell(id, [&](const ToldControl& told) { *state = StateOf(told); });
  }

  wxAccStatus GetLocation(wxRect& rect, int id) override {
    return Tell(id, [&](const ToldControl& told) {
      const DuiLib::Rect& pos = told.control->GetPos();
      rect = {canvas.ClientToScreen(canvas.FromDIP(wxPoint(pos.left, pos.top))),
              canvas.FromDIP(wxSize(pos.Width(), pos.Height()))};
    });
  }

  wxAccStatus HitTest(const wxPoint& place, int* id, wxAccessible** child) override {
    *child = nullptr;
    if (canvas.GetContent() == nullptr) return wxACC_FAIL;
    const DuiLib::Point point = canvas.ToPoints(canvas.ScreenToClient(place));
    *id = NumberOf(canvas.GetContent()->FindControl(point));
    return wxACC_OK;
  }

  wxAccStatus GetFocus(int* id, wxAccessible** child) override {
    *child = nullptr;
    if (canvas.GetContent() == nullptr) return wxACC_FAIL;
    *id = NumberOf(canvas.GetContent()->GetFocus());
    return wxACC_OK;
  }

  wxAccStatus DoDefaultAction(int id) override {
    bool done = false;
    const wxAccStatus status =
        Tell(id, [&](const ToldControl& told) { done = told.control->Activate(); });
    return status == wxACC_OK && !done ? wxACC_FALSE : status;
  }

  /// That of the control, or of the nearest one around it that is told.
  int NumberOf(const CControlUI* control) const {
    const std::vector<ToldControl> all = Told();
    for (; control != nullptr; control = control->GetParent()) {
      const auto found = std::find_if(
          all.begin(), all.end(), [&](const ToldControl& told) { return told.control == control; });
      if (found != all.end()) return static_cast<int>(found - all.begin()) + 1;
    }
    return wxACC_SELF;
  }

  /// The control whose focus was told last.
  const CControlUI* toldFocus = nullptr;

 private:
  std::vector<ToldControl> Told() const {
    if (canvas.GetContent() == nullptr) return {};
    canvas.GetContent()->LayOut();
    return DuiLib::ToldControls(*canvas.GetContent());
  }

  template <typename Use>
  wxAccStatus Tell(int id, const Use& use) const {
    if (id == wxACC_SELF) return wxACC_NOT_IMPLEMENTED;  // the window's own is right
    const std::vector<ToldControl> all = Told();
    if (id < 1 || static_cast<std::size_t>(id) > all.size()) return wxACC_INVALID_ARG;
    use(all[static_cast<std::size_t>(id) - 1]);
    return wxACC_OK;
  }

  long StateOf(const ToldControl& told) const {
    const CControlUI& control = *told.control;
    const DuiLib::Size size = canvas.GetContent()->GetClientSize();
    const bool inSight = !control.GetPos().Meeting({0, 0, size.width, size.height}).IsEmpty();
    long state = 0;
    if (!inSight) state |= wxACC_STATE_SYSTEM_OFFSCREEN;
    if (!control.IsUsable()) state |= wxACC_STATE_SYSTEM_UNAVAILABLE;
    if (control.IsFocusable()) state |= wxACC_STATE_SYSTEM_FOCUSABLE;
    if (control.IsFocused()) state |= wxACC_STATE_SYSTEM_FOCUSED;
    if (control.IsSelected()) state |= wxACC_STATE_SYSTEM_CHECKED;
    return state;
  }

  Canvas& canvas;
};

}  // namespace

void MakeAccessible(Canvas& canvas) {
  canvas.SetAccessible(new CanvasAccessible(canvas));
}

void ReportFocus(Canvas& canvas) {
  auto* const accessible = static_cast<CanvasAccessible*>(canvas.GetAccessible());
  const CControlUI* const focus = canvas.GetContent()->GetFocus();
  if (accessible == nullptr || focus == accessible->toldFocus) return;
  accessible->toldFocus = focus;
  wxAccessible::NotifyEvent(wxACC_EVENT_OBJECT_FOCUS, &canvas, wxOBJID_CLIENT,
                            accessible->NumberOf(focus));
}

}  // namespace duiwindow
