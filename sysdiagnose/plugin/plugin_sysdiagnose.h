#pragma once

#include <string>

#include "platform/plugins_manager/plugin_interfaces.h"

namespace orv::sysdiagnose {

/// The plugin object: contributes the diagnosis page to the host's window. Holds no state. UI
/// thread.
class CPluginSysdiagnose : public IQVXUIPlugin {
 public:
  static constexpr const char* kClassId = "orv.plugin.sysdiagnose";

  /// The interfaces that are handed out; the root interface is not one of them.
  static bool Answers(x3::InterfaceId id);

  const char* ClassId() const override { return kClassId; }
  const char* ClassName() const override { return "CPluginSysdiagnose"; }

  /// True without a page when the product does not offer the hardware plugin; false for a null
  /// context.
  bool CreateUI(PageCreationContext* context) override;
  bool OnHostNotification8() override { return true; }
  bool OnHostNotification9() override { return true; }
  bool OnHostNotification10() override { return true; }
  void OnHostNotification11() override {}
  void OnHostNotification12() override {}
  void OnHostNotification13() override {}
  std::wstring PluginKey() override { return L"PluginSysdiagnose"; }

  bool MountPage(DuiLib::CPaintManagerUI* paintManager, DuiLib::CNotifyPump* notifyPump,
                 PageCreationContext* context) override;
  void OnUIHostNotification16() override {}
};

}  // namespace orv::sysdiagnose
