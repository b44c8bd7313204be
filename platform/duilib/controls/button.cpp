#include "platform/duilib/controls/button.h"

namespace DuiLib {

CButtonUI::CButtonUI() {
  SetAlign(Place::kMiddle, Place::kMiddle);
}

const wchar_t* CButtonUI::GetClass() const {
  return L"Button";
}

bool CButtonUI::Activate() {
  if (!IsUsable()) return false;
  Notify(kNotifyClick);
  return true;
}

}  // namespace DuiLib
