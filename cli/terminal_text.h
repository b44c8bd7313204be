#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "common/printable.h"

// Text for people on a terminal, in UTF-8.
namespace cli {

using common::Printable;

/// Columns that a printable text takes: wide characters and pictures take two, marks that combine
/// with others none.
std::size_t Columns(const std::wstring& text);

/// Printable, filled up with blanks to a number of columns.
std::string Padded(const std::wstring& text, std::size_t columns);

/// As much of the text's beginning as fits into a number of columns.
std::wstring Shortened(const std::wstring& text, std::size_t columns);

/// The text in lines of at most so many columns, broken at blanks and between characters that stand
/// for words where it can be.
std::vector<std::wstring> Wrapped(const std::wstring& text, std::size_t columns);

/// Columns that lines of text may take: those of the terminal, but at most 80.
std::size_t LineColumns();

/// The text in lines of at most LineColumns, each set in by so many columns.
std::string Indented(const std::wstring& text, std::size_t indent);

/// Whether standard output is a terminal that knows escape sequences.
bool IsStyled();

enum class Colour { Red, Green, Yellow, Grey, Bold, Plain };

/// The text in a colour when standard output is a terminal that knows colours and the user has not
/// turned them off (NO_COLOR), else as it is.
std::string Coloured(Colour colour, const std::string& text);

}  // namespace cli
