#include "platform/duiwindow/screen.h"

#include <wx/app.h>

#include "platform/duilib/notify/contained_call.h"
#include "platform/duiwindow/content_loop.h"
#include "platform/duiwindow/display.h"
#include "platform/duiwindow/modal_window.h"
#include "platform/duiwindow/top_frame.h"
#include "platform/os/export.h"

namespace duiwindow {

Screen& Screen::Instance() {
  static Screen& screen = *new Screen;
  return screen;
}

Screen::Screen() : dark(AsksForDark()) {
  WatchDark([this] { OnDarkChanged(); });
}

std::unique_ptr<DuiLib::NativeWindow> Screen::Make(DuiLib::WindowImplBase& window) {
  return std::make_unique<ModalWindow>(window);
}

std::unique_ptr<DuiLib::TopWindow> Screen::MakeTop(DuiLib::CPaintManagerUI& content,
                                                   const DuiLib::Placement& placement) {
  return std::make_unique<TopFrame>(content, placement);
}

void Screen::Run() {
  wxGUIEventLoop running;
  loop = &running;
  ContentLoop::Instance().Settle();
  ContentLoop::Instance().WakeUp();
  running.Run();
  loop = nullptr;
  wxTheApp->ProcessIdle();  // destroys what was closed last
}

void Screen::Quit() {
  const std::vector<ModalWindow*> open = modals;
  for (auto modal = open.rbegin(); modal != open.rend(); ++modal) (*modal)->Cancel();
  if (loop != nullptr) loop->ScheduleExit();
}

void Screen::OnDarkChanged() {
  if (AsksForDark() == dark) return;
  dark = !dark;
  ContentLoop::Instance().Do([this] {
    if (darkChanged) darkChanged();
  });
}

}  // namespace duiwindow

extern "C" ORV_EXPORT DuiLib::Desktop* TheDesktop(std::string& reason) {
  static std::string& whyNot = *new std::string;
  static const bool connected = duiwindow::ConnectDisplay(whyNot);
  if (connected) return &duiwindow::Screen::Instance();
  reason = whyNot;
  return nullptr;
}
