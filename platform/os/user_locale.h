#pragma once

#include <string>

namespace os {

/// The user's locale as the system names it ("zh_CN.UTF-8", "zh-CN"): language first. Empty when
/// none is set.
std::string UserLocale();

}  // namespace os
