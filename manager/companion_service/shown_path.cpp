#include "manager/companion_service/shown_path.h"

#include <exception>
#include <optional>
#include <string_view>
#include <type_traits>

#include "common/path_text.h"
#include "common/text.h"

namespace companion {
namespace {

// Empty for what is no text, which the library does not convert on one system and hands on as it
// stands on another.
std::optional<std::string> TextOf(const std::filesystem::path& path) {
  try {
    std::string text = common::PathText(path);
    if (common::WideToUtf8(common::Utf8ToWide(text)) == text) return text;
  } catch (const std::exception&) {
  }
  return std::nullopt;
}

template <typename Unit>
void AppendEscaped(std::string& text, Unit unit) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  const auto number = static_cast<std::make_unsigned_t<Unit>>(unit);
  text += '%';
  for (int shift = 8 * sizeof(Unit); shift > 0; shift -= 4)
    text += kDigits[number >> (shift - 4) & 0xF];
}

}  // namespace

std::string ShownPath(std::filesystem::path path) {
  if (const auto text = TextOf(path)) return *text;
  std::string shown;
  for (const auto unit : path.make_preferred().native()) {
    if (unit >= ' ' && unit <= '~')
      shown += static_cast<char>(unit);
    else
      AppendEscaped(shown, unit);
  }
  return shown;
}

}  // namespace companion
