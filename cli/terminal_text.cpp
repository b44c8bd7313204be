#include "cli/terminal_text.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "common/text.h"
#include "platform/os/console.h"

namespace cli {
namespace {

struct Range {
  char32_t first;
  char32_t last;
};

// Blocks of characters that terminals draw two columns wide.
constexpr auto kWide = std::to_array<Range>({{0x1100, 0x115F},
                                             {0x2E80, 0x303E},
                                             {0x3041, 0xA4CF},
                                             {0xAC00, 0xD7A3},
                                             {0xF900, 0xFAFF},
                                             {0xFE30, 0xFE6F},
                                             {0xFF00, 0xFF60},
                                             {0xFFE0, 0xFFE6},
                                             {0x20000, 0x3FFFD}});

constexpr auto kEscapes =
    std::to_array<std::string_view>({"\033[31m", "\033[32m", "\033[33m", "\033[90m", "\033[1m"});

}  // namespace

std::size_t Columns(const std::wstring& text) {
  std::size_t columns = 0;
  for (const char32_t c : common::WideToUtf32(text)) {
    const bool isWide = std::any_of(kWide.begin(), kWide.end(), [c](const Range& range) {
      return c >= range.first && c <= range.last;
    });
    columns += isWide ? 2 : 1;
  }
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
    if (line.size() < next.size() && next[line.size()] != L' ') {
      const std::size_t blank = line.rfind(L' ');
      if (blank != std::wstring::npos && blank > 0) line.resize(blank);
    }
    at = std::min(text.find_first_not_of(L' ', at + line.size()), text.size());
    lines.push_back(std::move(line));
  }
  return lines;
}

std::string Coloured(Colour colour, const std::string& text) {
  static const bool coloured = os::OutputIsTerminal();
  if (!coloured || text.empty()) return text;
  return std::string(kEscapes[static_cast<std::size_t>(colour)]) + text + "\033[0m";
}

}  // namespace cli
