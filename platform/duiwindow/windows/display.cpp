#include "platform/duiwindow/display.h"

#include <windows.h>

#include <wx/msw/private.h>
#include <wx/window.h>

#include "platform/duiwindow/toolkit.h"

namespace duiwindow {
namespace {

std::function<void()>& Changed() {
  static auto& changed = *new std::function<void()>;
  return changed;
}

bool OnSetting(wxWindowMSW*, WXUINT, WXWPARAM, WXLPARAM) {
  if (Changed()) Changed()();
  return false;  // others may hear it too
}

}  // namespace

bool ConnectDisplay(std::string& reason) {
  StartToolkit();
  const HWND probe = CreateWindowExW(0, L"STATIC", nullptr, WS_POPUP, 0, 0, 1, 1, nullptr, nullptr,
                                     nullptr, nullptr);
  if (probe == nullptr) {
    reason = "the system has no desktop to show windows on";
    return false;
  }
  DestroyWindow(probe);
  return true;
}

void DragWindow(wxTopLevelWindow& window) {
  ReleaseCapture();
  SendMessageW(GetHwndOf(&window), WM_NCLBUTTONDOWN, HTCAPTION, 0);
}

bool TellsPlaces() {
  return true;
}

bool AsksForDark() {
  DWORD light = 1;
  DWORD size = sizeof light;
  RegGetValueW(HKEY_CURRENT_USER,
               L"Software\\Microsoft\\Windows\\CurrentVersion\\Themes\\Personalize",
               L"AppsUseLightTheme", RRF_RT_REG_DWORD, nullptr, &light, &size);
  return light == 0;
}

void WatchDark(std::function<void()> changed) {
  Changed() = std::move(changed);
  wxWindow::MSWRegisterMessageHandler(WM_SETTINGCHANGE, OnSetting);
}

}  // namespace duiwindow
