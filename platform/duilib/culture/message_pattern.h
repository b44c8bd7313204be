#pragma once

#include <string>
#include <vector>

// Texts with placeholders {0}, {1}, ... in the form of ICU's message patterns.
namespace DuiLib {

/// The pattern with its placeholders filled; empty when the text is not a message pattern.
std::wstring FillPattern(const std::wstring& pattern, const std::vector<std::wstring>& arguments);

/// How many arguments the pattern takes: one more than its highest placeholder, 0 for a text that
/// is not a message pattern.
int PatternArguments(const std::wstring& pattern);

}  // namespace DuiLib
