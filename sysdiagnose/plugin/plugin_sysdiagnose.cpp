#include "sysdiagnose/plugin/plugin_sysdiagnose.h"

#include "platform/util/soft_shelf.h"

namespace orv::sysdiagnose {

bool CPluginSysdiagnose::Answers(x3::InterfaceId id) {
  return id == x3::IdOf<IQVXUIPlugin>() || id == x3::IdOf<IQVXPlugin>();
}

bool CPluginSysdiagnose::CreateUI(PageCreationContext* context) {
  if (!CQVXSoftShelf::GetInstance()->IsSupportPlugin("orv_plugin_hardware")) return true;
  if (context == nullptr) return false;
  return MountPage(context->paintManager, context->notifyPump, context);
}

// Without a layout there is no page to hand over, which is not a failure.
bool CPluginSysdiagnose::MountPage(DuiLib::CPaintManagerUI*, DuiLib::CNotifyPump*,
                                   PageCreationContext*) {
  return true;
}

}  // namespace orv::sysdiagnose
