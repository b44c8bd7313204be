#pragma once

#include <wx/colour.h>

#include <cstdint>

namespace duiwindow {

inline wxColour GraphicsColour(std::uint32_t argb) {
  return {static_cast<unsigned char>(argb >> 16), static_cast<unsigned char>(argb >> 8),
          static_cast<unsigned char>(argb), static_cast<unsigned char>(argb >> 24)};
}

}  // namespace duiwindow
