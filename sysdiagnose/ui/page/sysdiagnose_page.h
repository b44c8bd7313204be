#pragma once

#include <memory>
#include <string>

#include "platform/duilib/notify/notify_pump.h"
#include "sysdiagnose/ui/page/control_tree.h"

namespace orv::sysdiagnose {

/// A page: a control tree built from a layout, and what happens when its controls tell something.
/// It may be mounted again, which builds the tree anew and lets the one before go. UI thread only.
class SysdiagnosePage : public DuiLib::CNotifyPump {
 public:
  SysdiagnosePage(const SysdiagnosePage&) = delete;
  SysdiagnosePage& operator=(const SysdiagnosePage&) = delete;

  /// Builds the tree and registers the page in the pump. The tree belongs to whoever adds it to
  /// another; there is none when the layout cannot be loaded.
  void CreatePage(DuiLib::CPaintManagerUI* paintManager, DuiLib::CNotifyPump* ownerPump);
  DuiLib::CControlUI* GetRoot() const { return root; }

 protected:
  SysdiagnosePage(std::wstring virtualWindow, std::wstring layout);
  ~SysdiagnosePage();

  // The virtual operations stand in the order of their published slots.
  const DuiLib::NotifyMap* GetMessageMap() const override { return &kMessageMap; }
  virtual void OnClick(DuiLib::TNotifyUI&) {}
  virtual void OnTimer(DuiLib::TNotifyUI&) {}
  virtual void OnTabSelectIn(DuiLib::TNotifyUI&) {}
  virtual void OnSelectChanged(DuiLib::TNotifyUI&) {}
  virtual void OnLink(DuiLib::TNotifyUI&) {}

 public:
  /// To be called once the tree has its place.
  virtual void InitPage() {}

 protected:
  /// The tree goes, or is about to be built anew: end what runs and forget its controls.
  virtual void OnGone() {}

  DuiLib::CPaintManagerUI* GetPaintManager() const { return paintManager; }
  DuiLib::CNotifyPump* GetOwnerPump() const { return ownerPump; }

  /// The control of that name on this page; null when there is none, or it is of another class.
  template <typename Class>
  Class* Find(const wchar_t* name) const {
    return FindBelow<Class>(root, name);
  }
  /// Passed over when there is no such control.
  void SetText(const wchar_t* name, const std::wstring& text) const;
  void SetVisible(const wchar_t* name, bool visible) const;
  void SetEnabled(const wchar_t* name, bool enabled) const;

  /// Gone when the tree is.
  std::weak_ptr<const void> WhileMounted() const { return mounted; }

 private:
  static const DuiLib::NotifyMapRow kMessageRows[];
  static const DuiLib::NotifyMap kMessageMap;

  void HandleClick(DuiLib::TNotifyUI& notification) { OnClick(notification); }
  void HandleTimer(DuiLib::TNotifyUI& notification) { OnTimer(notification); }
  void HandleTabSelectIn(DuiLib::TNotifyUI& notification) { OnTabSelectIn(notification); }
  void HandleSelectChanged(DuiLib::TNotifyUI& notification) { OnSelectChanged(notification); }
  void HandleLink(DuiLib::TNotifyUI& notification) { OnLink(notification); }

  void Unmount();
  void DeleteUnplaced();

  DuiLib::CPaintManagerUI* paintManager = nullptr;  // of the host's window
  DuiLib::CNotifyPump* ownerPump = nullptr;         // of the host's window
  DuiLib::CControlUI* root = nullptr;
  std::wstring virtualWindowName;
  std::wstring layoutFile;  // below the skin folder
  std::shared_ptr<const void> mounted;
};

}  // namespace orv::sysdiagnose
