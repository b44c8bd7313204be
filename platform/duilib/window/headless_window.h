#pragma once

#include <chrono>

#include "platform/duilib/window/person.h"

namespace DuiLib {

/// A window without a screen: a tree, its manager and a person who uses it. Time is that of the
/// clock in force. UI thread only.
class DUILIB_API HeadlessWindow {
 public:
  explicit HeadlessWindow(Size size);
  ~HeadlessWindow();
  HeadlessWindow(const HeadlessWindow&) = delete;
  HeadlessWindow& operator=(const HeadlessWindow&) = delete;

  CPaintManagerUI& Manager() { return manager; }

  /// Takes the tree over, lays it out and tells "windowinit" with its root.
  void Open(CControlUI* root);

  /// The clock goes on from one thing that is due to the next: timers of
  /// all windows run and what waits for the UI thread. A clock that does not jump waits that long.
  void Tick(std::chrono::milliseconds time);

  CDuiString Text(const CDuiString& name) { return Person(manager).Text(name); }
  Rect Position(const CDuiString& name) { return Person(manager).Position(name); }
  void Click(const CDuiString& name) { Person(manager).Click(name); }
  void Select(const CDuiString& name, bool on) { Person(manager).Select(name, on); }
  void Activate(const CDuiString& name) { Person(manager).Activate(name); }
  void Link(const CDuiString& name) { Person(manager).Link(name); }
  bool Press(Key key) { return Person(manager).Press(key); }

 private:
  CPaintManagerUI manager;
};

}  // namespace DuiLib
