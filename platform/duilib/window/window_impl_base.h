#pragma once

#include <memory>

#include "platform/duilib/tree/paint_manager.h"
#include "platform/duilib/window/native_window.h"

namespace DuiLib {

/// Hit codes of OnNcHitTest.
inline constexpr int kHitNothing = 0;  // no answer
inline constexpr int kHitClient = 1;
inline constexpr int kHitCaption = 2;  // a press drags the window

/// A window with a layout as its content; its own pump. Call order: Create, then CenterWindow and
/// ShowModal as often as wished. UI thread only.
class DUILIB_API WindowImplBase : public CNotifyPump {
 public:
  WindowImplBase();
  virtual ~WindowImplBase();

  /// Builds the content from the skin file and calls InitWindow. The window is as large as the
  /// root's lengths say, and takes theme, scale and text measure over from its parent, if it has
  /// one. False, and a log line, when there is no content. A style of the window system has no
  /// meaning where there is none.
  bool Create(CPaintManagerUI* parent, const CDuiString& title, unsigned style,
              unsigned extendedStyle);

  void CenterWindow();
  /// Shows the window and runs until Close; the result that was given there, 0 for a window that
  /// has no content.
  int ShowModal();
  void Close(int result);

  CPaintManagerUI& GetManager() { return manager; }
  CPaintManagerUI* GetParentManager() const { return parentManager; }
  const CDuiString& GetTitle() const { return windowTitle; }

  virtual CDuiString GetWindowClassName() const = 0;

  /// The person or the window system closes it: title bar, Escape. Closes it with 0.
  virtual void OnCancel() { Close(0); }
  /// What lies at a point of the screen.
  virtual int OnNcHitTest(Point) { return kHitNothing; }

 protected:
  /// Below the skin folder.
  virtual CDuiString GetSkinFile() const = 0;
  /// Below the installation.
  virtual CDuiString GetSkinFolder() const = 0;
  virtual void InitWindow() {}
  Point ScreenToClient(Point screen) const;

 private:
  CPaintManagerUI manager;
  CPaintManagerUI* parentManager = nullptr;
  CDuiString windowTitle;
  std::unique_ptr<NativeWindow> native;  // goes before the manager
  int modalResult = 0;
};

}  // namespace DuiLib
