#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace machine {

/// Picture size in dots and rate in pictures a second.
struct DisplayMode {
  std::uint32_t width = 0;
  std::uint32_t height = 0;
  std::uint32_t rate = 0;  // 0 when unknown

  bool operator==(const DisplayMode&) const = default;
};

/// What a display says of itself.
struct Edid {
  std::string name;  // its own, else that of its panel, else maker code and product number
  std::uint32_t widthMillimetres = 0;  // both 0 when it does not say
  std::uint32_t heightMillimetres = 0;
  DisplayMode preferred;
};

/// From the base block of VESA's E-EDID 1.3 and later, the first 128 bytes; what follows is not
/// read. Nothing when header or checksum is wrong.
std::optional<Edid> ParseEdid(std::span<const std::byte> bytes);

/// The name, and the diagonal in inches where the size is known: `NAME (14.0")`.
std::string CaptionOf(const Edid& display);

}  // namespace machine
