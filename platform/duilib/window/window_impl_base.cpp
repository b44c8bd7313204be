#include "platform/duilib/window/window_impl_base.h"

#include "common/file.h"
#include "common/text.h"
#include "platform/duilib/builder/dialog_builder.h"
#include "platform/os/paths.h"

namespace DuiLib {

WindowImplBase::WindowImplBase() = default;
WindowImplBase::~WindowImplBase() = default;

bool WindowImplBase::Create(CPaintManagerUI* parent, const CDuiString& title, unsigned, unsigned) {
  parentManager = parent;
  windowTitle = title;
  manager.SetSkinFolder(os::InstallationFolder() /
                        common::BackslashPath(common::WideToUtf8(GetSkinFolder())));
  manager.SetNotifyPump(this);
  manager.SetCancelHook([this] { OnCancel(); });
  if (parent != nullptr) manager.TakeLookOf(*parent);

  CControlUI* const root = CDialogBuilder().Create(GetSkinFile(), {}, &manager);
  if (root == nullptr) return false;
  manager.SetRoot(root);
  const int width = root->GetWishedWidth();
  manager.SetClientSize({width, root->GetWishedHeight(width)});
  native = WindowSystem::InForce().Make(*this);
  InitWindow();
  manager.LayOut();
  root->Notify(kNotifyWindowInit);
  return true;
}

void WindowImplBase::CenterWindow() {
  if (native) native->Centre();
}

int WindowImplBase::ShowModal() {
  if (!native) return 0;
  modalResult = 0;
  native->Show();
  native->RunModal();
  return modalResult;
}

void WindowImplBase::Close(int result) {
  modalResult = result;
  if (native) native->EndModal();
}

Point WindowImplBase::ScreenToClient(Point screen) const {
  return native ? native->ToClient(screen) : screen;
}

}  // namespace DuiLib
