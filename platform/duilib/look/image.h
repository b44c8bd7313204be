#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/os/export.h"

namespace DuiLib {

/// A picture of the resources, named by its path below the skin folder with slashes between
/// folders; without one it shows nothing.
struct DUILIB_API Image {
  std::wstring file;

  /// "file='<path>'", blanks around the equals sign or not, back slashes read as slashes; an empty
  /// text is no picture. Nothing for any other text.
  static std::optional<Image> Parse(std::wstring_view text);

  /// The picture of one frame: its number stands before the extension.
  Image Frame(int number) const;

  bool operator==(const Image&) const = default;
};

}  // namespace DuiLib
