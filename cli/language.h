#pragma once

#include <string>

namespace cli {

/// The language of the texts that the user's environment asks for: zh-CN or en-US.
std::string UserLanguage();

}  // namespace cli
