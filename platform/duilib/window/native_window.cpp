#include "platform/duilib/window/native_window.h"

#include "platform/duilib/window/headless_desktop.h"

namespace DuiLib {
namespace {

WindowSystem*& Set() {
  static WindowSystem* set = nullptr;
  return set;
}

}  // namespace

NativeWindow::NativeWindow() = default;
NativeWindow::~NativeWindow() = default;
WindowSystem::WindowSystem() = default;
WindowSystem::~WindowSystem() = default;

WindowSystem& WindowSystem::InForce() {
  return Set() == nullptr ? HeadlessDesktop::Instance() : *Set();
}

void WindowSystem::SetInForce(WindowSystem* system) {
  Set() = system;
}

}  // namespace DuiLib
