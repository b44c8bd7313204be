#include "platform/os/user_locale.h"

#include "common/text.h"
#include "platform/os/windows/handle.h"

namespace os {

std::string UserLocale() {
  wchar_t name[LOCALE_NAME_MAX_LENGTH] = L"";
  GetUserDefaultLocaleName(name, LOCALE_NAME_MAX_LENGTH);
  return common::WideToUtf8(name);
}

}  // namespace os
