#pragma once

#include <string>

namespace cli {

/// Whether a word of the command line names one test of a category: "memory/CheckBoard".
bool IsItemName(const std::string& word);

/// Throws UsageError, naming those that the category has, for a word that names no test.
void RequireItem(const std::string& word);

}  // namespace cli
