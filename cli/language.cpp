#include "cli/language.h"

#include <cstdlib>
#include <string_view>

namespace cli {

std::string UserLanguage() {
  for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const char* value = std::getenv(name);
    if (value == nullptr || *value == '\0') continue;
    return std::string_view(value).starts_with("zh") ? "zh-CN" : "en-US";
  }
  return "en-US";
}

}  // namespace cli
