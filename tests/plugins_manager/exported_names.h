#pragma once

#include <string>
#include <vector>

/// The names that a library exports, in no order.
std::vector<std::string> ExportedNames(const char* library);
