#include "manager/window/choice.h"

#include <memory>

#include "manager/host/layout.h"
#include "platform/duilib/builder/dialog_builder.h"
#include "platform/duilib/controls/option.h"

namespace manager {
namespace {

constexpr const wchar_t* kLayout = L"layout\\manager_choice.xml";

std::unique_ptr<DuiLib::COptionUI> BuildOption(DuiLib::CPaintManagerUI& window) {
  std::unique_ptr<DuiLib::CControlUI> built(DuiLib::CDialogBuilder().Create(kLayout, {}, &window));
  auto* const option = dynamic_cast<DuiLib::COptionUI*>(built.get());
  if (option == nullptr) FailForControl(kLayout);
  static_cast<void>(built.release());
  return std::unique_ptr<DuiLib::COptionUI>(option);
}

}  // namespace

void OfferChoice(DuiLib::CPaintManagerUI& window, const wchar_t* container,
                 const std::vector<std::wstring>& texts, std::size_t selected,
                 const std::function<void(std::size_t)>& chosen) {
  auto& row = FindIn<DuiLib::CContainerUI>(*window.GetRoot(), container);
  for (std::size_t number = 0; number < texts.size(); ++number) {
    auto option = BuildOption(window);
    option->SetText(texts[number]);
    option->SetGroup(container);
    option->Selected(number == selected, false);
    option->SetNotifyHook([chosen, number, self = option.get()](DuiLib::TNotifyUI& notification) {
      if (notification.type == DuiLib::kNotifySelectChanged && self->IsSelected()) chosen(number);
      return true;
    });
    row.Add(option.release());
  }
}

}  // namespace manager
