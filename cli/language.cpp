#include "cli/language.h"

#include "platform/os/user_locale.h"

namespace cli {

std::string UserLanguage() {
  return os::UserLocale().starts_with("zh") ? "zh-CN" : "en-US";
}

}  // namespace cli
