#pragma once

namespace DuiLib {

/// The largest length and the most room on a side that a layout gives, in points, so that sums stay
/// within an int whatever it holds.
inline constexpr int kMaxLength = 16384;

/// The largest length of a control; longer ones are cut to it. What fills a list at run time may
/// have thousands of rows in one item.
inline constexpr int kMaxNumber = 1 << 20;

/// How long a control is along one axis: as long as its content wishes, a share of what the others
/// leave, or a number of points.
struct Length {
  enum class Kind { kShrink, kGrow, kNumber };

  static constexpr Length Shrink() { return {Kind::kShrink, 0}; }
  static constexpr Length Grow(int shares = 1) { return {Kind::kGrow, shares}; }
  static constexpr Length Number(int points) {
    return {Kind::kNumber, points < 0 ? 0 : points > kMaxNumber ? kMaxNumber : points};
  }

  Kind kind = Kind::kShrink;
  int value = 0;  // the shares or the points
  bool operator==(const Length&) const = default;
};

/// Where something stands in room that is longer than it.
enum class Place { kStart, kMiddle, kEnd };

/// What lies before something of `length` in `room`.
inline constexpr int Before(Place place, int room, int length) {
  if (place == Place::kStart || length >= room) return 0;
  return place == Place::kMiddle ? (room - length) / 2 : room - length;
}

}  // namespace DuiLib
