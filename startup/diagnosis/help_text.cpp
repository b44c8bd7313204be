#include "startup/diagnosis/help_text.h"

#include "common/text.h"
#include "platform/duilib/culture/culture.h"

namespace startup {

std::string HelpText(const wchar_t* id) {
  return common::WideToUtf8(
      DuiLib::UICulture::GetInstance()->GetString(std::wstring(L"IDS_HARDWARE_HELP_") + id));
}

}  // namespace startup
