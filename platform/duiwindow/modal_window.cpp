#include "platform/duiwindow/modal_window.h"

#include <wx/graphics.h>

#include "platform/duilib/notify/contained_call.h"
#include "platform/duiwindow/content_loop.h"
#include "platform/duiwindow/screen.h"

namespace duiwindow {
namespace {

Canvas* ParentCanvas(const DuiLib::WindowImplBase& window) {
  const DuiLib::CPaintManagerUI* const parent = window.GetParentManager();
  return parent == nullptr ? nullptr : ContentLoop::Instance().Find(parent);
}

wxDialog* MakeDialog(const DuiLib::WindowImplBase& window) {
  Canvas* const parent = ParentCanvas(window);
  auto* const dialog = new wxDialog;
  dialog->Create(parent == nullptr ? nullptr : wxGetTopLevelParent(parent), wxID_ANY,
                 wxString(window.GetTitle()), wxDefaultPosition, wxDefaultSize,
                 wxBORDER_NONE | wxFRAME_SHAPED);
  dialog->SetEscapeId(wxID_NONE);
  return dialog;
}

// What lies behind a modal window is dimmed meanwhile.
class Veil {
 public:
  explicit Veil(const DuiLib::WindowImplBase& before) : window(before) { Draw(true); }
  Veil(const Veil&) = delete;
  Veil& operator=(const Veil&) = delete;
  ~Veil() { Draw(false); }

 private:
  void Draw(bool value) const {
    if (Canvas* const parent = ParentCanvas(window)) parent->SetVeiled(value);
  }

  const DuiLib::WindowImplBase& window;
};

}  // namespace

ModalWindow::ModalWindow(DuiLib::WindowImplBase& around)
    : window(around),
      wishedSize(around.GetManager().GetClientSize()),
      dialog(MakeDialog(around)),
      canvas(new Canvas(*dialog, around.GetManager())) {
  dialog->SetClientSize(dialog->FromDIP(wxSize(wishedSize.width, wishedSize.height)));
  RoundCorners();
  dialog->Bind(wxEVT_CLOSE_WINDOW, &ModalWindow::OnClose, this);
  canvas->dragsAt = [this](DuiLib::Point point) {
    const wxPoint screen = canvas->ClientToScreen(canvas->FromDIP(wxPoint(point.x, point.y)));
    const DuiLib::Point there = canvas->ToPoints(screen);
    return window.OnNcHitTest(there) == DuiLib::kHitCaption;
  };
  canvas->SetFocus();
}

ModalWindow::~ModalWindow() {
  canvas->Detach();
  dialog->Hide();
  dialog->Destroy();
}

void ModalWindow::RoundCorners() {
  const DuiLib::CControlUI* const root = window.GetManager().GetRoot();
  const int radius = root == nullptr ? 0 : dialog->FromDIP(root->GetStyle().radius);
  if (radius <= 0) return;
  wxGraphicsPath path = wxGraphicsRenderer::GetDefaultRenderer()->CreatePath();
  const wxSize size = dialog->GetSize();
  path.AddRoundedRectangle(0, 0, size.x, size.y, radius);
  dialog->SetShape(path);
}

void ModalWindow::Centre() {
  dialog->CentreOnParent();
}

void ModalWindow::RunModal() {
  {
    const Veil veil(window);
    const Screen::Running running(*this);
    ContentLoop::Instance().Settle();
    ContentLoop::Instance().WakeUp();
    dialog->ShowModal();
  }
  ContentLoop::Instance().Settle();
}

void ModalWindow::EndModal() {
  if (dialog->IsModal()) dialog->EndModal(0);
}

void ModalWindow::Cancel() {
  ContentLoop::Instance().Do([this] {
    DuiLib::CallContained([this] { window.OnCancel(); }, "the cancel of a window");
    if (dialog->IsModal()) window.Close(0);
  });
}

DuiLib::Point ModalWindow::ToClient(DuiLib::Point screen) const {
  return canvas->ToPoints(canvas->ScreenToClient(canvas->FromDIP(wxPoint(screen.x, screen.y))));
}

}  // namespace duiwindow
