#pragma once

#include <memory>

#include "platform/duilib/culture/culture.h"
#include "platform/duilib/tree/geometry.h"
#include "platform/os/export.h"

namespace DuiLib {

class WindowImplBase;

/// A window of the window system, around the content of a WindowImplBase. UI thread only.
class DUILIB_API NativeWindow {
 public:
  NativeWindow();
  virtual ~NativeWindow();
  NativeWindow(const NativeWindow&) = delete;
  NativeWindow& operator=(const NativeWindow&) = delete;

  virtual void Show() = 0;
  /// In the middle of its parent, of the screen without one.
  virtual void Centre() = 0;
  /// Runs a loop of its own, queued closures included, until EndModal; the other windows take no
  /// input meanwhile.
  virtual void RunModal() = 0;
  virtual void EndModal() = 0;
  /// The point of the content at a point of the screen.
  virtual Point ToClient(Point screen) const = 0;
};

/// Makes windows. UI thread only.
class DUILIB_API WindowSystem {
 public:
  WindowSystem();
  virtual ~WindowSystem();
  WindowSystem(const WindowSystem&) = delete;
  WindowSystem& operator=(const WindowSystem&) = delete;

  /// The one in force; the headless desktop unless one was set.
  static WindowSystem& InForce();
  /// Null for the headless desktop. The caller owns it.
  static void SetInForce(WindowSystem* system);

  virtual std::unique_ptr<NativeWindow> Make(WindowImplBase& window) = 0;
};

}  // namespace DuiLib
