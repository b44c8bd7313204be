#include "tests/duiwindow/hand.h"

#include <windows.h>

#include <cstdlib>
#include <map>
#include <stdexcept>

namespace {

HWND WindowOf(const std::string& title) {
  for (int tries = 0; tries < 10000; ++tries) {
    const HWND window = FindWindowA(nullptr, title.c_str());
    if (window != nullptr && IsWindowVisible(window)) return window;
    Sleep(1);  // until another thread has opened it
  }
  throw std::runtime_error("there is no window " + title);
}

void Send(INPUT input) {
  if (SendInput(1, &input, sizeof input) != 1) throw std::runtime_error("no input can be sent");
}

void SendMouse(DWORD flags, int data = 0) {
  INPUT input{};
  input.type = INPUT_MOUSE;
  input.mi.dwFlags = flags;
  input.mi.mouseData = static_cast<DWORD>(data);
  Send(input);
}

}  // namespace

void StartDisplay() {}

void AskForDark(bool dark) {
  const DWORD light = dark ? 0 : 1;
  RegSetKeyValueW(HKEY_CURRENT_USER,
                  L"Software\\Microsoft\\Windows\\CurrentVersion\\Themes\\Personalize",
                  L"AppsUseLightTheme", REG_DWORD, &light, sizeof light);
  // As the system tells every window.
  const auto tell = [](HWND window, LPARAM) -> BOOL {
    SendMessageW(window, WM_SETTINGCHANGE, 0, 0);
    return TRUE;
  };
  EnumThreadWindows(GetCurrentThreadId(), tell, 0);
}

DuiLib::Point Hand::Place() const {
  POINT corner{};
  ClientToScreen(WindowOf(title), &corner);
  return {corner.x, corner.y};
}

void Hand::Move(DuiLib::Point place) const {
  const DuiLib::Point corner = Place();
  SetCursorPos(corner.x + place.x, corner.y + place.y);
  SendMouse(MOUSEEVENTF_MOVE);
}

void Hand::Press() const {
  SendMouse(MOUSEEVENTF_LEFTDOWN);
}

void Hand::Release() const {
  SendMouse(MOUSEEVENTF_LEFTUP);
}

void Hand::Click(DuiLib::Point place) const {
  Move(place);
  Press();
  Release();
}

void Hand::Wheel(int notches) const {
  for (int notch = 0; notch < std::abs(notches); ++notch)
    SendMouse(MOUSEEVENTF_WHEEL, notches > 0 ? -WHEEL_DELTA : WHEEL_DELTA);
}

void Hand::Key(const std::string& name) const {
  static const std::map<std::string, WORD> codes = {{"Tab", VK_TAB},       {"Return", VK_RETURN},
                                                    {"space", VK_SPACE},   {"End", VK_END},
                                                    {"Escape", VK_ESCAPE}, {"Down", VK_DOWN}};
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wVk = codes.at(name);
  Send(input);
  input.ki.dwFlags = KEYEVENTF_KEYUP;
  Send(input);
}

void Hand::Close() const {
  PostMessageW(WindowOf(title), WM_SYSCOMMAND, SC_CLOSE, 0);
}

Hand::Shot Hand::Look() const {
  const HWND window = WindowOf(title);
  RECT room{};
  GetClientRect(window, &room);
  Shot shot{{room.right, room.bottom}, {}};
  const HDC screen = GetDC(window);
  const HDC memory = CreateCompatibleDC(screen);
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = room.right;
  info.bmiHeader.biHeight = -room.bottom;  // from the top
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  void* dots = nullptr;
  const HBITMAP bitmap = CreateDIBSection(screen, &info, DIB_RGB_COLORS, &dots, nullptr, 0);
  const HGDIOBJ before = SelectObject(memory, bitmap);
  BitBlt(memory, 0, 0, room.right, room.bottom, screen, 0, 0, SRCCOPY);
  GdiFlush();
  const auto* const first = static_cast<const std::uint32_t*>(dots);
  for (int at = 0; at < room.right * room.bottom; ++at) shot.dots.push_back(first[at] & 0xFFFFFF);
  SelectObject(memory, before);
  DeleteObject(bitmap);
  DeleteDC(memory);
  ReleaseDC(window, screen);
  return shot;
}
