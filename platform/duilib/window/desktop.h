#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "platform/duilib/tree/paint_manager.h"
#include "platform/duilib/window/native_window.h"

namespace DuiLib {

/// Where a window stood, in points of the screen; without a place the window system finds one.
struct Placement {
  std::optional<Point> place;
  Size size;  // of its content
  bool maximized = false;
};

/// A window with the system's frame around the content of a CPaintManagerUI. Gone when it is
/// destroyed, which its own hooks may do. UI thread only.
class DUILIB_API TopWindow {
 public:
  TopWindow();
  virtual ~TopWindow();
  TopWindow(const TopWindow&) = delete;
  TopWindow& operator=(const TopWindow&) = delete;

  virtual void SetTitle(const CDuiString& title) = 0;
  virtual void Show() = 0;
  /// Before all other windows, with the keyboard; also one that was made an icon.
  virtual void Raise() = 0;
  /// Where it stands; while it is maximised, where it stood before. No place where the window
  /// system does not tell.
  virtual Placement GetPlacement() const = 0;

  /// The person or the window system closes it: whether it closes then. It does if none is set.
  /// What these hooks throw is logged; one that fails lets it close.
  std::function<bool()> closeAsked;
  /// It has closed and is not seen any more.
  std::function<void()> closed;
};

/// The windows of the screen: those that plugins make, those of the program, and the loop of all.
/// UI thread only.
class DUILIB_API Desktop : public WindowSystem {
 public:
  /// The one of the DuiWindow library, which lies beside this one; connected to the display at the
  /// first call and never unloaded. Null where there is no library or no display: `reason` is then
  /// a line that says which.
  static Desktop* Load(std::string& reason);

  /// The content takes the exact text measure and the scale of its display; it lives longer than
  /// the window.
  virtual std::unique_ptr<TopWindow> MakeTop(CPaintManagerUI& content,
                                             const Placement& placement) = 0;

  /// The loop: input, painting, timers, closures of UIMainQueue; until Quit.
  virtual void Run() = 0;
  /// Ends the loop, and those of modal windows in it.
  virtual void Quit() = 0;

  /// Whether the system asks for dark windows.
  virtual bool IsDark() const = 0;
  /// That has changed. What it throws is logged.
  std::function<void()> darkChanged;
};

/// What the library exports: its one desktop, under the name kDesktopProcedure; null and the reason
/// where no display answers.
using DesktopProcedure = Desktop* (*)(std::string& reason);
inline constexpr const char* kDesktopProcedure = "TheDesktop";

}  // namespace DuiLib
