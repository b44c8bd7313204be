#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/os/export.h"

namespace DuiLib {

/// A colour: a number, or a name that the theme in force gives a number.
class DUILIB_API Colour {
 public:
  /// Shows nothing.
  Colour() = default;
  /// Alpha first, as it stands: 0x7B6EF9 has alpha 0 and shows nothing.
  Colour(std::uint32_t alphaFirst) : argb(alphaFirst) {}  // NOLINT: a number is a colour

  static Colour Named(std::wstring name);

  /// "#RRGGBB" is opaque, "#AARRGGBB" carries its alpha first, lower-case words are names.
  static std::optional<Colour> Parse(std::wstring_view text);

  const std::wstring& Name() const { return name; }
  std::uint32_t Argb() const { return argb; }
  bool operator==(const Colour&) const = default;

 private:
  std::wstring name;  // empty for a number
  std::uint32_t argb = 0;
};

}  // namespace DuiLib
