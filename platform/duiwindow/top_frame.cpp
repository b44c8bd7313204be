#include "platform/duiwindow/top_frame.h"

#include <wx/display.h>

#include <algorithm>

#include "platform/duilib/notify/contained_call.h"
#include "platform/duiwindow/content_loop.h"
#include "platform/duiwindow/display.h"

namespace duiwindow {

TopFrame::TopFrame(DuiLib::CPaintManagerUI& content, const DuiLib::Placement& wished)
    : frame(new wxFrame(nullptr, wxID_ANY, wxString())),
      canvas(new Canvas(*frame, content)),
      placement(wished) {
  if (const DuiLib::CControlUI* const root = content.GetRoot()) {
    frame->SetMinClientSize(frame->FromDIP(wxSize(root->GetLeastWidth(), root->GetLeastHeight())));
  }
  Place(wished);
  frame->Bind(wxEVT_CLOSE_WINDOW, &TopFrame::OnClose, this);
  frame->Bind(wxEVT_ACTIVATE, &TopFrame::OnActivate, this);
  frame->Bind(wxEVT_MOVE, &TopFrame::OnMoved, this);
  frame->Bind(wxEVT_SIZE, &TopFrame::OnMoved, this);
  canvas->SetFocus();
}

TopFrame::~TopFrame() {
  canvas->Detach();
  frame->Hide();
  frame->Destroy();
}

// A place that is on no display any more does not count, nor does a size that no display has.
void TopFrame::Place(const DuiLib::Placement& wished) {
  const wxPoint place =
      wished.place ? frame->FromDIP(wxPoint(wished.place->x, wished.place->y)) : wxDefaultPosition;
  const int there = wished.place ? wxDisplay::GetFromPoint(place) : wxNOT_FOUND;
  const wxRect room = wxDisplay(static_cast<unsigned>(std::max(0, there))).GetClientArea();
  wxSize size = frame->FromDIP(wxSize(wished.size.width, wished.size.height));
  size.DecTo(room.GetSize());
  frame->SetClientSize(size);
  if (there == wxNOT_FOUND) {
    frame->CentreOnScreen();
  } else {
    frame->Move(place);
  }
  if (wished.maximized) frame->Maximize();
}

void TopFrame::OnActivate(wxActivateEvent& event) {
  event.Skip();
  if (event.GetActive()) canvas->SetFocus();
}

// Whether it is maximised is known after its size.
void TopFrame::OnMoved(wxEvent& event) {
  event.Skip();
  CallAfter([this] { FollowPlace(); });
}

void TopFrame::FollowPlace() {
  if (!frame->IsShown() || frame->IsIconized()) return;
  placement.maximized = frame->IsMaximized();
  if (placement.maximized) return;
  const wxPoint place = frame->ToDIP(frame->GetPosition());
  const wxSize size = frame->ToDIP(frame->GetClientSize());
  placement.size = {size.x, size.y};
  if (TellsPlaces()) placement.place = DuiLib::Point{place.x, place.y};
}

void TopFrame::SetTitle(const DuiLib::CDuiString& title) {
  frame->SetTitle(wxString(title));
}

void TopFrame::Show() {
  frame->Show();
  ContentLoop::Instance().Settle();
}

void TopFrame::Raise() {
  if (frame->IsIconized()) frame->Iconize(false);
  Show();
  frame->Raise();
  canvas->SetFocus();
}

// Either hook may destroy this.
void TopFrame::OnClose(wxCloseEvent&) {
  ContentLoop::Instance().Do([this] {
    bool closes = true;
    const auto asked = closeAsked;
    DuiLib::CallContained([&] { closes = !asked || asked(); }, "the question whether to close");
    if (!closes) return;
    frame->Hide();
    const auto hook = closed;
    if (hook) hook();
  });
}

}  // namespace duiwindow
