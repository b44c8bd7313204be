#pragma once

namespace DuiLib {

/// The keys that controls know.
enum class Key {
  kTab,
  kBackTab,
  kEnter,
  kSpace,
  kEscape,
  kUp,
  kDown,
  kLeft,
  kRight,
  kPageUp,
  kPageDown,
  kHome,
  kEnd
};

}  // namespace DuiLib
