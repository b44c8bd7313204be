#pragma once

#include <algorithm>

// Whole points of the unscaled window: a window at twice the size has the same geometry and is
// painted with twice as many dots.
namespace DuiLib {

struct Point {
  int x = 0;
  int y = 0;
};

struct Size {
  int width = 0;
  int height = 0;
  bool operator==(const Size&) const = default;
};

/// Room on the four sides of something.
struct Insets {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;
  bool operator==(const Insets&) const = default;
  int Across() const { return left + right; }
  int Down() const { return top + bottom; }
};

/// Right and bottom are the first points outside.
struct Rect {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;
  bool operator==(const Rect&) const = default;

  int Width() const { return right - left; }
  int Height() const { return bottom - top; }
  bool IsEmpty() const { return right <= left || bottom <= top; }
  bool Contains(Point point) const {
    return point.x >= left && point.x < right && point.y >= top && point.y < bottom;
  }
  Point Middle() const { return {left + Width() / 2, top + Height() / 2}; }
  Rect MovedBy(int x, int y) const { return {left + x, top + y, right + x, bottom + y}; }

  /// Without the room on its sides; never turned inside out.
  Rect Without(const Insets& sides) const {
    const int innerLeft = std::min(left + sides.left, right);
    const int innerTop = std::min(top + sides.top, bottom);
    return {innerLeft, innerTop, std::max(right - sides.right, innerLeft),
            std::max(bottom - sides.bottom, innerTop)};
  }

  /// With so many points more on each side.
  Rect GrownBy(int points) const {
    return {left - points, top - points, right + points, bottom + points};
  }

  /// Whether the other lies in it; an empty one does.
  bool Holds(const Rect& other) const {
    return other.IsEmpty() || (other.left >= left && other.top >= top && other.right <= right &&
                               other.bottom <= bottom);
  }

  /// What both share; empty when they do not meet.
  Rect Meeting(const Rect& other) const {
    return {std::max(left, other.left), std::max(top, other.top), std::min(right, other.right),
            std::min(bottom, other.bottom)};
  }

  /// The smallest that holds both; an empty one adds nothing.
  Rect Holding(const Rect& other) const {
    if (IsEmpty()) return other;
    if (other.IsEmpty()) return *this;
    return {std::min(left, other.left), std::min(top, other.top), std::max(right, other.right),
            std::max(bottom, other.bottom)};
  }
};

}  // namespace DuiLib
