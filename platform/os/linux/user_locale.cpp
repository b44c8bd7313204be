#include "platform/os/user_locale.h"

#include <cstdlib>

namespace os {

std::string UserLocale() {
  for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const char* value = std::getenv(name);
    if (value != nullptr && *value != '\0') return value;
  }
  return {};
}

}  // namespace os
