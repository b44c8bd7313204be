#pragma once

#include <string>

namespace common {

/// The text in UTF-8 with control characters as "?", so that no device name can drive a terminal.
std::string Printable(const std::wstring& text);

}  // namespace common
