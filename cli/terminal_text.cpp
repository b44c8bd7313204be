#include "cli/terminal_text.h"

#include <unicode/uchar.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string_view>

#include "common/text.h"
#include "platform/os/console.h"

namespace cli {
namespace {

constexpr std::size_t kMostColumns = 80;
constexpr std::size_t kFewestColumns = 20;  // of text, whatever the terminal says

bool IsVariable(const char* name) {
  const char* const value = std::getenv(name);
  return value != nullptr && *value != '\0';
}

bool IsWide(char32_t c) {
  const auto point = static_cast<UChar32>(c);
  const int width = u_getIntPropertyValue(point, UCHAR_EAST_ASIAN_WIDTH);
  return width == U_EA_FULLWIDTH || width == U_EA_WIDE ||
         u_hasBinaryProperty(point, UCHAR_EMOJI_PRESENTATION) != 0;
}

bool HasNoWidth(char32_t c) {
  const auto category = u_charType(static_cast<UChar32>(c));
  return category == U_NON_SPACING_MARK || category == U_ENCLOSING_MARK ||
         category == U_FORMAT_CHAR;
}

constexpr auto kEscapes = std::to_array<std::string_view>(
    {"\033[31m", "\033[32m", "\033[33m", "\033[90m", "\033[1m", ""});

// Marks that do not begin a line.
constexpr std::wstring_view kClosing = L"。，、；：！？）》」』”’…";

// Where the text can be broken: at blanks, and beside characters that stand for words.
bool IsBreak(const std::wstring& text, std::size_t at) {
  if (text[at] == L' ') return true;
  if (kClosing.find(text[at]) != std::wstring_view::npos) return false;
  return IsWide(static_cast<char32_t>(text[at])) || IsWide(static_cast<char32_t>(text[at - 1]));
}

// The last break up to a place; that place where there is none.
std::size_t LastBreak(const std::wstring& text, std::size_t place) {
  for (std::size_t at = place; at > 0; --at)
    if (IsBreak(text, at)) return at;
  return std::max<std::size_t>(place, 1);
}

}  // namespace

std::size_t Columns(const std::wstring& text) {
  std::size_t columns = 0;
  for (const char32_t c : common::WideToUtf32(text))
    columns += HasNoWidth(c) ? 0 : IsWide(c) ? 2 : 1;
  return columns;
}

std::string Padded(const std::wstring& text, std::size_t columns) {
  const std::size_t taken = Columns(text);
  return Printable(text) + std::string(taken < columns ? columns - taken : 0, ' ');
}

std::wstring Shortened(const std::wstring& text, std::size_t columns) {
  std::wstring fitting = text;
  while (Columns(fitting) > columns) fitting.pop_back();
  return fitting;
}

std::vector<std::wstring> Wrapped(const std::wstring& text, std::size_t columns) {
  std::vector<std::wstring> lines;
  std::size_t at = 0;
  while (at < text.size()) {
    const std::wstring next = text.substr(at, 2 * columns + 1);  // two units a column at most
    std::wstring line = Shortened(next, columns);
    if (line.size() < next.size()) line.resize(LastBreak(next, line.size()));
    at = std::min(text.find_first_not_of(L' ', at + line.size()), text.size());
    lines.push_back(std::move(line));
  }
  return lines;
}

std::size_t LineColumns() {
  const std::size_t columns = os::OutputColumns();
  return columns == 0 ? kMostColumns : std::clamp(columns, kFewestColumns, kMostColumns);
}

std::string Indented(const std::wstring& text, std::size_t indent) {
  std::string lines;
  for (const std::wstring& line : Wrapped(text, LineColumns() - indent))
    lines += (lines.empty() ? "" : "\n") + std::string(indent, ' ') + Printable(line);
  return lines;
}

bool IsStyled() {
  const char* const terminal = std::getenv("TERM");
  const bool isDumb = terminal != nullptr && std::string_view(terminal) == "dumb";
  return !isDumb && os::OutputIsTerminal();
}

std::string Coloured(Colour colour, const std::string& text) {
  static const bool coloured = IsStyled() && !IsVariable("NO_COLOR");
  if (!coloured || text.empty()) return text;
  return std::string(kEscapes[static_cast<std::size_t>(colour)]) + text + "\033[0m";
}

}  // namespace cli
