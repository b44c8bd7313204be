#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "common/printable.h"

// Text for people on a terminal, in UTF-8.
namespace cli {

using common::Printable;

/// Columns that a printable text takes; East Asian wide characters take two.
std::size_t Columns(const std::wstring& text);

/// Printable, filled up with blanks to a number of columns.
std::string Padded(const std::wstring& text, std::size_t columns);

/// As much of the text's beginning as fits into a number of columns.
std::wstring Shortened(const std::wstring& text, std::size_t columns);

/// The text in lines of at most so many columns, broken at blanks where it can be.
std::vector<std::wstring> Wrapped(const std::wstring& text, std::size_t columns);

enum class Colour { Red, Green, Yellow, Grey, Bold };

/// The text in a colour when standard output is a terminal, else as it is.
std::string Coloured(Colour colour, const std::string& text);

}  // namespace cli
