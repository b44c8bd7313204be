#pragma once

#include <cstdint>
#include <functional>
#include <optional>

#include "platform/duilib/culture/culture.h"
#include "platform/duilib/layout/length.h"
#include "platform/duilib/look/style.h"
#include "platform/duilib/notify/notify.h"
#include "platform/duilib/tree/geometry.h"
#include "platform/duilib/window/key.h"
#include "platform/os/export.h"

namespace DuiLib {

class CContainerUI;
class CPaintManagerUI;

/// One node of a window's tree: a rectangle with a name, a text and a look. Owned by its container
/// once it was added there. UI thread only, as everything derived from it.
class DUILIB_API CControlUI {
 public:
  CControlUI();
  virtual ~CControlUI();
  CControlUI(const CControlUI&) = delete;
  CControlUI& operator=(const CControlUI&) = delete;

  /// The name of its element in layouts.
  virtual const wchar_t* GetClass() const;

  const CDuiString& GetName() const { return name; }
  void SetName(const CDuiString& value) { name = value; }

  /// The text with its marks; a bind expression given to SetText is looked up at once.
  const CDuiString& GetText() const { return text; }
  void SetText(const CDuiString& value);
  /// The text as a person reads it.
  virtual CDuiString GetPlainText() const { return text; }

  const CDuiString& GetToolTip() const { return toolTip; }
  void SetToolTip(const CDuiString& value);
  const CDuiString& GetUserData() const { return userData; }
  void SetUserData(const CDuiString& value) { userData = value; }

  /// The name under which notifications from here on downwards go to a page.
  void SetVirtualWnd(const CDuiString& value) { virtualWindow = value; }
  /// The nearest name upwards from here; empty if there is none.
  CDuiString GetVirtualWnd() const;

  CContainerUI* GetParent() const { return parent; }
  /// The manager of the window it is shown in; null outside of windows.
  CPaintManagerUI* GetManager() const { return manager; }

  /// Whether it wants to be seen; an invisible one takes no room.
  bool IsVisible() const { return visible; }
  void SetVisible(bool value);
  /// Whether it is in a tab that does not show it.
  bool IsHiddenByTab() const { return hiddenByTab; }
  /// Whether it and all above it want to be seen, and no tab hides them.
  bool IsShown() const;
  bool IsEnabled() const { return enabled; }
  void SetEnabled(bool value);
  /// Whether it is shown, and it and all above it are enabled.
  bool IsUsable() const;

  void SetWidth(Length value);
  void SetHeight(Length value);
  void SetFixedWidth(int points) { SetWidth(Length::Number(points)); }
  void SetFixedHeight(int points) { SetHeight(Length::Number(points)); }
  Length GetWidth() const { return lengthAcross; }
  Length GetHeight() const { return lengthDown; }
  void SetLeastWidth(int points);
  void SetLeastHeight(int points);
  int GetLeastWidth() const { return least.width; }
  int GetLeastHeight() const { return least.height; }
  /// Room around it that its container leaves free.
  void SetPadding(const Insets& value);
  const Insets& GetPadding() const { return padding; }

  /// How large it wants to be, without its padding; kept until something changes.
  int GetWishedWidth();
  int GetWishedHeight(int forWidth);

  /// Where it stands in the window, as of the last layout.
  const Rect& GetPos() const { return pos; }
  /// Puts it there. Its content is laid out only if it or something in it has changed.
  void SetPos(const Rect& rect);
  /// Puts it there out of sight: its content is laid out when it comes into sight.
  void SetPosOutOfSight(const Rect& rect);
  /// Marks it and all above it to be laid out anew.
  void NeedLayout();
  /// Its rectangle is to be painted anew.
  void Invalidate();

  const Style& GetStyle() const { return style; }
  /// Gives the look in a state; `selected` says which table.
  void SetLook(ControlState state, bool selected, const Look& look);
  void SetBackground(Colour colour);
  void SetGradient(Colour from, Colour to);
  /// "file='<path>'", empty for none; anything else is one log line and changes nothing.
  void SetImage(const CDuiString& expression);
  void SetBorder(int points, Colour colour);
  void SetRadius(int points);
  /// A shadow so many points soft around it; 0 for none.
  void SetShadow(int points);
  /// The look now.
  Look GetLook() const;
  virtual bool IsSelected() const { return false; }

  /// Whether a press here drags the window.
  bool IsDragHandle() const { return dragHandle; }
  void SetDragHandle(bool value) { dragHandle = value; }

  /// Hears what this control tells before its window's pump does; true keeps it from the pump.
  void SetNotifyHook(std::function<bool(TNotifyUI&)> hook) { notifyHook = std::move(hook); }
  /// Called once when the control goes. It must not touch the tree.
  void SetGoneHook(std::function<void()> hook) { goneHook = std::move(hook); }
  /// Tells the hook and the pump of the window.
  void Notify(const CDuiString& type, std::size_t value = 0);

  virtual bool IsFocusable() const { return false; }
  /// Whether the tab key stops here if it can have the focus; not where another one beside it does
  /// the same.
  bool IsTabStop() const { return tabStop; }
  void SetTabStop(bool value) { tabStop = value; }
  bool IsFocused() const;
  bool IsHovered() const;
  bool IsPressed() const;

  /// Does what a person's click, Enter or Space does; whether there is such a thing.
  virtual bool Activate() { return false; }
  /// It was clicked there. Whether it took the click; else its container may.
  virtual bool OnClick(Point) { return Activate(); }
  /// Whether a click there follows a link.
  virtual bool IsLinkAt(Point) { return false; }
  /// What is told about it beside the pointer; empty for nothing.
  virtual CDuiString GetHint() { return toolTip; }
  /// The pointer was pressed there; whether it takes all that the pointer does until it is
  /// released, which OnDrag then hears.
  virtual bool OnPress(Point) { return false; }
  virtual void OnDrag(Point) {}
  /// A key while it has the focus, or something in it that did not take it. Whether it took it.
  virtual bool OnKey(Key) { return false; }
  /// The wheel was turned over it, upwards if positive. Whether it took it.
  virtual bool OnWheel(int) { return false; }
  /// A timer of its own, not told to the pump.
  virtual void OnOwnTimer(std::size_t) {}
  /// The deepest usable or unusable control at a point, or null.
  virtual CControlUI* FindAt(Point point);

 protected:
  virtual int MeasureWidth() { return 0; }
  virtual int MeasureHeight(int) { return 0; }
  /// Its rectangle is set: place what lies in it.
  virtual void Arrange() {}
  virtual void OnTextChanged() {}
  /// It now belongs to a window, or to none.
  virtual void OnManagerChanged() {}
  virtual void MoveBy(int x, int y);
  virtual void SetManager(CPaintManagerUI* value);

  bool needsLayout = true;

 private:
  friend class CContainerUI;
  friend class CPaintManagerUI;
  friend class CTabLayoutUI;

  CDuiString name;
  CDuiString text;
  CDuiString toolTip;
  CDuiString userData;
  CDuiString virtualWindow;
  CContainerUI* parent = nullptr;
  CPaintManagerUI* manager = nullptr;
  bool visible = true;
  bool hiddenByTab = false;
  bool enabled = true;
  bool dragHandle = false;
  bool tabStop = true;
  Length lengthAcross = Length::Shrink();
  Length lengthDown = Length::Shrink();
  Size least;
  Insets padding;
  Rect pos;
  Style style;
  std::optional<int> wishedWidth;
  std::optional<Size> wishedHeight;  // and the width it is for
  std::function<bool(TNotifyUI&)> notifyHook;
  std::function<void()> goneHook;
};

}  // namespace DuiLib
