#pragma once

#include <string>
#include <vector>

/// The names that a library exports, as the loader knows them, in no order.
std::vector<std::string> ExportedNames(const char* library);

/// The names that a module imports from a library, as the loader knows them, in no order.
std::vector<std::string> ImportedNames(const char* module, const char* library);
