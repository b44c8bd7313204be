#pragma once

#include <cstddef>
#include <numeric>
#include <vector>

#include "platform/duilib/layout/length.h"
#include "platform/duilib/layout/shares.h"

namespace DuiLib {

/// How a control of this length shares room; a fixed length is its least one too.
inline Sharer SharerOf(Length length, int least, int wished) {
  if (length.kind == Length::Kind::kNumber) return {wished, wished, 0};
  if (length.kind == Length::Kind::kGrow) return {least, least, length.value};
  return {least, wished, 0};
}

/// What so many controls leave free between one another.
inline int Gaps(std::size_t controls, int childPadding) {
  return controls == 0 ? 0 : static_cast<int>(controls - 1) * childPadding;
}

inline int Sum(const std::vector<int>& lengths) {
  return std::accumulate(lengths.begin(), lengths.end(), 0);
}

}  // namespace DuiLib
