#include "manager/host/layout.h"

#include <memory>

#include "common/text.h"
#include "platform/duilib/builder/dialog_builder.h"

namespace manager {

DuiLib::CContainerUI* BuildLayout(const wchar_t* layout, DuiLib::CPaintManagerUI* window,
                                  DuiLib::CContainerUI* parent) {
  std::unique_ptr<DuiLib::CControlUI> tree(DuiLib::CDialogBuilder().Create(layout, {}, window));
  auto* const container = dynamic_cast<DuiLib::CContainerUI*>(tree.get());
  if (container == nullptr)
    throw std::runtime_error(common::WideToUtf8(layout) +
                             ": the layout cannot be read, as the log says, or is no container");
  if (parent != nullptr) parent->Add(container);
  static_cast<void>(tree.release());
  return container;
}

void FailForControl(const wchar_t* name) {
  throw std::runtime_error("the layouts of the manager: " + common::WideToUtf8(name) +
                           " is missing or of another kind");
}

}  // namespace manager
