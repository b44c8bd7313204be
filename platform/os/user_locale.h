#pragma once

#include <string>

#include "platform/os/export.h"

namespace os {

/// The user's locale as the system names it ("zh_CN.UTF-8", "zh-CN"): language first. Empty when
/// none is set.
UTIL_API std::string UserLocale();

}  // namespace os
