#include "platform/duiwindow/display.h"

#include <windows.h>

#include <wx/msw/private.h>

#include "platform/duiwindow/toolkit.h"

namespace duiwindow {
namespace {

std::function<void()>& Changed() {
  static auto& changed = *new std::function<void()>;
  return changed;
}

LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM first, LPARAM second) {
  if (message == WM_SETTINGCHANGE && Changed()) Changed()();
  return DefWindowProcW(window, message, first, second);
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
  // The toolkit keeps the message to itself. A hidden window hears it, one for messages only does
  // not.
  const HWND listener = CreateWindowExW(0, L"STATIC", nullptr, WS_POPUP, 0, 0, 0, 0, nullptr,
                                        nullptr, nullptr, nullptr);
  SetWindowLongPtrW(listener, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&OnMessage));
}

}  // namespace duiwindow
