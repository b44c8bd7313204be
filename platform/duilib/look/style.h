#pragma once

#include <array>
#include <cstddef>
#include <optional>

#include "platform/duilib/look/colour.h"
#include "platform/duilib/look/image.h"

namespace DuiLib {

/// What a control looks like; of a state only what differs from the look at rest is given.
struct Look {
  std::optional<Colour> background;
  std::optional<Colour> gradientEnd;  // the background runs into it from left to right
  std::optional<Image> image;
  std::optional<Colour> tint;  // of the picture, of which then the alpha alone counts
  std::optional<Colour> border;
  std::optional<Colour> text;
  bool operator==(const Look&) const = default;
};

/// The softest shadow, in points.
inline constexpr int kMaxShadow = 64;

/// How far beyond a control the ring of the focus reaches, and how wide it is.
inline constexpr int kFocusRing = 2;

/// The states of a control, from the least to the most telling.
enum class ControlState { kRest, kFocused, kHovered, kPressed, kDisabled };
inline constexpr std::size_t kControlStates = 5;

/// A control's looks: one for each state, and another one for each while it is selected.
struct Style {
  std::array<Look, kControlStates> looks;
  std::array<Look, kControlStates> selectedLooks;
  int borderWidth = 0;
  int radius = 0;
  int shadow = 0;  // how soft it is; it lies a quarter of that lower

  /// The look in a state: that at rest, over it that of the state, and while selected over these
  /// the selected one and that of the selected state.
  Look Of(ControlState state, bool selected) const;
};

}  // namespace DuiLib
