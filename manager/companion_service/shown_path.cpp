#include "manager/companion_service/shown_path.h"

#include <exception>
#include <optional>
#include <string_view>
#include <type_traits>

#include "common/path_text.h"
#include "common/text.h"

namespace companion {
namespace {

namespace fs = std::filesystem;

// Empty for what is no text, which the library does not convert on one system and hands on as it
// stands on another.
std::optional<std::string> TextOf(const fs::path& path) {
  try {
    std::string text = common::PathText(path);
    if (common::WideToUtf8(common::Utf8ToWide(text)) == text) return text;
  } catch (const std::exception&) {
  }
  return std::nullopt;
}

template <typename Unit>
std::string EscapedUnits(std::basic_string_view<Unit> units) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string escaped;
  for (const Unit unit : units) {
    if (unit >= ' ' && unit <= '~') {
      escaped += static_cast<char>(unit);
      continue;
    }
    escaped += '%';
    const auto number = static_cast<std::make_unsigned_t<Unit>>(unit);
    for (int shift = 8 * sizeof(Unit) - 4; shift >= 0; shift -= 4)
      escaped += kDigits[number >> shift & 0xF];
  }
  return escaped;
}

}  // namespace

std::string ShownPath(fs::path path) {
  if (const auto text = TextOf(path)) return *text;
  return EscapedUnits(std::basic_string_view<fs::path::value_type>(path.make_preferred().native()));
}

std::string Escaped(std::string_view text) {
  return EscapedUnits(text);
}

}  // namespace companion
