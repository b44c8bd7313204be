#include "sysdiagnose/plugin/plugin_sysdiagnose.h"

#include "platform/duilib/culture/culture.h"
#include "platform/util/soft_shelf.h"
#include "sysdiagnose/ui/host/page_index.h"

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
bool CPluginSysdiagnose::MountPage(DuiLib::CPaintManagerUI* paintManager,
                                   DuiLib::CNotifyPump* notifyPump, PageCreationContext* context) {
  const std::wstring title =
      DuiLib::UICulture::GetInstance()->ParseBind(L"bind='IDS_HARDWARE_DETECT'");
  PageIndex& host = PageIndex::Instance();
  host.CreatePage(paintManager, notifyPump);
  if (host.GetRoot() == nullptr) return true;
  constexpr int kPageKind = 1;
  context->AddPageCallback(kPageKind, title, host.GetRoot());
  host.InitPage();
  return true;
}

}  // namespace orv::sysdiagnose
