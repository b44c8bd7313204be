#pragma once

namespace duiwindow {

/// Whether a letter is one of those, Chinese ones among them, that are as wide as they are high.
inline bool IsWide(wchar_t letter) {
  constexpr wchar_t kFirstWide = 0x2E80;
  return letter >= kFirstWide;
}

}  // namespace duiwindow
