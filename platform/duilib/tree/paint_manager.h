#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/duilib/look/theme.h"
#include "platform/duilib/notify/notify_pump.h"
#include "platform/duilib/tree/container.h"
#include "platform/duilib/tree/damage.h"
#include "platform/duilib/window/text_measure.h"

namespace DuiLib {

/// What the controls of one window share: the root of the tree, names, timers, focus, pointer,
/// layout and damage, and where resources lie. UI thread only.
class DUILIB_API CPaintManagerUI {
 public:
  CPaintManagerUI();
  ~CPaintManagerUI();
  CPaintManagerUI(const CPaintManagerUI&) = delete;
  CPaintManagerUI& operator=(const CPaintManagerUI&) = delete;

  // The tree
  /// Takes the root over; the one before goes.
  void SetRoot(CControlUI* control);
  CControlUI* GetRoot() const { return root.get(); }
  /// The first of that name in tree order, in the window or below (and with) a control; null if
  /// there is none.
  CControlUI* FindControl(const CDuiString& name) const;
  static CControlUI* FindControl(CControlUI* below, const CDuiString& name);

  // Notifications
  /// The pump of the window; lives as long as this or until another is set.
  void SetNotifyPump(CNotifyPump* value) { pump = value; }
  CNotifyPump* GetNotifyPump() const { return pump; }
  /// Tells the sender's hook and the pump. Controls that are removed meanwhile go afterwards.
  void SendNotify(CControlUI& sender, const CDuiString& type, std::size_t value = 0);

  // Timers, on the clock in force
  /// The control tells "timer" with the id in every period of so many milliseconds (1 at least); a
  /// timer of that id starts anew.
  void SetTimer(CControlUI* control, std::size_t id, int milliseconds);
  void KillTimer(const CControlUI* control, std::size_t id);
  void KillTimer(const CControlUI* control);
  /// A timer that calls the control's OnOwnTimer instead. `idle` says that nobody waits for it.
  void SetOwnTimer(CControlUI* control, std::size_t id, int milliseconds, bool idle);
  void KillOwnTimer(const CControlUI* control, std::size_t id);
  bool HasOwnTimer(const CControlUI* control, std::size_t id) const;
  /// When the next timer is due by the clock in force; those that nobody waits for as told.
  std::optional<std::chrono::nanoseconds> NextDue(bool withIdle) const;
  /// Runs each timer that is due, once, by when they were due. Returns how many ran.
  std::size_t RunDueTimers();

  // Layout and damage
  void SetClientSize(Size value);
  Size GetClientSize() const { return clientSize; }
  /// Lays out what has changed; `outOfSight` also what lists have scrolled out of sight.
  void LayOut(bool outOfSight = false);
  bool LaysOutAll() const { return laysOutAll; }
  void NeedLayout() { layoutNeeded = true; }
  /// How many controls were laid out since the start.
  std::size_t GetLayoutCount() const { return layouts; }
  void CountLayout() { ++layouts; }
  void Invalidate(const CControlUI& control);
  /// How far a control may paint beyond its rectangle: its shadow, the ring of the focus.
  int GetPaintReach() const;
  /// A control of the window has a shadow that soft.
  void NeedReach(int shadow);
  /// What is to be painted anew; nothing afterwards.
  std::vector<Rect> TakeDamage() { return damage.Take(); }

  // Look and resources
  /// Where layouts and pictures lie. "res" beside the programs at first.
  void SetSkinFolder(std::filesystem::path folder) { skinFolder = std::move(folder); }
  const std::filesystem::path& GetSkinFolder() const { return skinFolder; }
  /// The file of a name below the skin folder, written with either slash.
  std::filesystem::path GetSkinFile(const CDuiString& name) const;
  /// Reads fonts and colours of a file below the skin folder. What is wrong is one log line.
  void LoadTheme(const CDuiString& name);
  Theme& GetTheme() { return theme; }
  void SetBrightness(Theme::Brightness value);
  std::uint32_t ArgbOf(const Colour& colour) const { return theme.ArgbOf(colour); }
  /// One log line, once for each picture that is not there; `place` is put before it.
  void CheckImage(const Image& image, const std::string& place);
  /// The measure lives until another is set; null for the simple one.
  void SetTextMeasure(TextMeasure* value);
  TextMeasure& GetTextMeasure() { return *measure; }
  /// Dots per point. Geometry does not know it.
  void SetScale(double value);
  /// Theme, scale and text measure of another window; the measure is one that outlives both.
  void TakeLookOf(CPaintManagerUI& other);
  double GetScale() const { return scale; }

  // Keyboard and pointer, at unscaled points
  CControlUI* GetFocus() const { return focus; }
  /// Whether the focus is to be seen: after a key, until the pointer is used.
  bool ShowsFocus() const { return showsFocus; }
  /// Null takes the focus away.
  void SetFocus(CControlUI* control);
  CControlUI* GetHovered() const { return hovered; }
  CControlUI* GetPressed() const { return pressed; }
  /// Whether something took the key.
  bool OnKey(Key key);
  /// What Escape does when no control takes it.
  void SetCancelHook(std::function<void()> hook) { cancelHook = std::move(hook); }
  void OnMouseMove(Point point);
  void OnMouseDown(Point point);
  void OnMouseUp(Point point);
  /// The pointer has left the window.
  void OnMouseLeave();
  void OnWheel(Point point, int steps);
  /// The press does not count: something else took the pointer.
  void OnPressLost();
  /// The control at a point, or null.
  CControlUI* FindControl(Point point);
  /// What is told beside a pointer at that point: the hint of the innermost control that has one.
  CDuiString GetHint(Point point);
  /// Whether a click at that point follows a link.
  bool IsLinkAt(Point point);

  // For controls
  /// Keeps what is removed while it lives.
  class Delivery;
  /// The control goes or leaves the window: nothing here points to it any more.
  void Forget(const CControlUI& control);
  /// Destroys it, after the handlers that run.
  void Bury(std::unique_ptr<CControlUI> control);

 private:
  struct Timer {
    CControlUI* control;
    std::size_t id;
    bool own;
    bool idle;
    std::uint64_t serial;
    std::chrono::nanoseconds period;
    std::chrono::nanoseconds due;
  };

  void StartTimer(CControlUI* control, std::size_t id, int milliseconds, bool own, bool idle);
  void StopTimer(const CControlUI* control, std::size_t id, bool own);
  void RunTimer(std::uint64_t serial, std::chrono::nanoseconds now);
  void MoveFocus(bool forward);
  void Hover(CControlUI* control);
  void ShowFocus(bool value);

  std::vector<std::unique_ptr<CControlUI>> buried;
  std::unique_ptr<CControlUI> root;
  CNotifyPump* pump = nullptr;
  int deliveries = 0;
  std::vector<Timer> timers;
  std::uint64_t nextSerial = 0;
  Size clientSize;
  bool layoutNeeded = false;
  bool laysOutAll = false;
  std::size_t layouts = 0;
  Damage damage;
  int shadowReach = 0;
  std::filesystem::path skinFolder;
  Theme theme;
  std::set<std::wstring> missingImages;
  SimpleTextMeasure simpleMeasure;
  TextMeasure* measure = &simpleMeasure;
  double scale = 1;
  std::function<void()> cancelHook;
  CControlUI* focus = nullptr;
  bool showsFocus = false;
  CControlUI* hovered = nullptr;
  CControlUI* pressed = nullptr;
  bool drags = false;  // what is pressed takes the pointer
};

}  // namespace DuiLib
