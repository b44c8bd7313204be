#pragma once

#include <cstddef>
#include <utility>
#include <vector>

#include "platform/duilib/tree/geometry.h"

namespace DuiLib {

/// Rectangles that are to be painted anew: no two of them meet, and they are few.
class Damage {
 public:
  void Add(Rect rect) {
    if (rect.IsEmpty()) return;
    // What it takes in may make it meet others.
    for (std::size_t index = 0; index < rects.size();) {
      if (rects[index].Holds(rect)) return;
      const bool joins = rects.size() >= kMost || !rects[index].Meeting(rect).IsEmpty();
      if (!joins) {
        ++index;
        continue;
      }
      rect = rect.Holding(rects[index]);
      rects.erase(rects.begin() + static_cast<std::ptrdiff_t>(index));
      index = 0;
    }
    rects.push_back(rect);
  }

  std::vector<Rect> Take() { return std::exchange(rects, {}); }

 private:
  static constexpr std::size_t kMost = 16;

  std::vector<Rect> rects;
};

}  // namespace DuiLib
