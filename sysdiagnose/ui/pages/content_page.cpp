#include "sysdiagnose/ui/pages/content_page.h"

namespace orv::sysdiagnose {
namespace {

constexpr int kBarHeight = 140;

void Show(DuiLib::CControlUI& bar, bool shown) {
  bar.SetFixedHeight(shown ? kBarHeight : 0);
  bar.SetVisible(shown);
}

}  // namespace

bool ContentPage::ShowBar(const wchar_t* shown, const wchar_t* hidden) const {
  auto* const one = Find<DuiLib::CControlUI>(shown);
  auto* const other = Find<DuiLib::CControlUI>(hidden);
  if (one == nullptr || other == nullptr) return false;
  Show(*one, true);
  Show(*other, false);
  return true;
}

}  // namespace orv::sysdiagnose
