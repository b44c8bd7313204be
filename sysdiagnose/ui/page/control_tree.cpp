#include "sysdiagnose/ui/page/control_tree.h"

#include "platform/duilib/builder/dialog_builder.h"

namespace orv::sysdiagnose {

std::unique_ptr<DuiLib::CContainerUI> BuildContainer(DuiLib::CPaintManagerUI* manager,
                                                     const wchar_t* layout) {
  std::unique_ptr<DuiLib::CControlUI> tree(DuiLib::CDialogBuilder().Create(layout, {}, manager));
  auto* const container = dynamic_cast<DuiLib::CContainerUI*>(tree.get());
  if (container != nullptr) static_cast<void>(tree.release());
  return std::unique_ptr<DuiLib::CContainerUI>(container);
}

}  // namespace orv::sysdiagnose
