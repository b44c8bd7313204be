#pragma once

#include <wx/evtloop.h>

#include <vector>

#include "platform/duilib/window/desktop.h"

namespace duiwindow {

class ModalWindow;

/// The windows on the display.
class Screen final : public DuiLib::Desktop {
 public:
  /// The display has been connected.
  static Screen& Instance();

  std::unique_ptr<DuiLib::NativeWindow> Make(DuiLib::WindowImplBase& window) override;
  std::unique_ptr<DuiLib::TopWindow> MakeTop(DuiLib::CPaintManagerUI& content,
                                             const DuiLib::Placement& placement) override;
  void Run() override;
  void Quit() override;
  bool IsDark() const override { return dark; }

  /// A modal window runs its loop while this lives.
  class Running {
   public:
    explicit Running(ModalWindow& modal) : window(&modal) { Instance().modals.push_back(window); }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;
    ~Running() { std::erase(Instance().modals, window); }

   private:
    ModalWindow* const window;
  };

 private:
  Screen();

  void OnDarkChanged();

  wxGUIEventLoop* loop = nullptr;    // while it runs
  std::vector<ModalWindow*> modals;  // the topmost last
  bool dark = false;
};

}  // namespace duiwindow
