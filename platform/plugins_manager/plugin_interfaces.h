#pragma once

#include <functional>
#include <string>

#include "platform/plugins_manager/object.h"

namespace DuiLib {
class CControlUI;
class CNotifyPump;
class CPaintManagerUI;
}  // namespace DuiLib

/// What the host hands over when it asks for pages. Valid during the call.
struct PageCreationContext {
  DuiLib::CPaintManagerUI* paintManager = nullptr;
  DuiLib::CNotifyPump* notifyPump = nullptr;
  void* hostData = nullptr;  // not read by plugins

  /// Takes the kind of page, its title and its root control.
  std::function<void(int, std::wstring, DuiLib::CControlUI*)> AddPageCallback;
};

/// A plugin object of the host. Calls come on the UI thread. The notifications have no effect that
/// the host relies on; their order and results are the contract.
class IQVXPlugin : public x3::IObject {
 public:
  static constexpr const char* kInterfaceName = "IQVXPlugin";

  virtual bool CreateUI(PageCreationContext* context) = 0;
  virtual bool OnHostNotification8() = 0;
  virtual bool OnHostNotification9() = 0;
  virtual bool OnHostNotification10() = 0;
  virtual void OnHostNotification11() = 0;
  virtual void OnHostNotification12() = 0;
  virtual void OnHostNotification13() = 0;
  virtual std::wstring PluginKey() = 0;
};

/// A plugin object that contributes pages.
class IQVXUIPlugin : public IQVXPlugin {
 public:
  static constexpr const char* kInterfaceName = "IQVXUIPlugin";

  /// Builds the page and hands it to the context's callback. True also when there is no page.
  virtual bool MountPage(DuiLib::CPaintManagerUI* paintManager, DuiLib::CNotifyPump* notifyPump,
                         PageCreationContext* context) = 0;
  virtual void OnUIHostNotification16() = 0;
};
