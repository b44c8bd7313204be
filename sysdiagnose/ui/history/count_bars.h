#pragma once

#include <cstdint>

#include "platform/duilib/tree/control.h"

namespace orv::sysdiagnose {

/// The bars of how many categories of a run were normal and abnormal. They grow in twenty steps up
/// to their share of the room that both have. UI thread only.
class CountBars {
 public:
  /// Back to nothing, for a run of these counts.
  void Reset(std::int32_t normalCount, std::int32_t abnormalCount);
  /// The next step. Whether there is one after it.
  bool Grow();

  /// Shows the step in the bars and numbers below `page`. Nothing is drawn where one is missing.
  void Draw(DuiLib::CControlUI* page) const;

 private:
  std::int32_t normal = 0;
  std::int32_t abnormal = 0;
  int step = 0;
};

}  // namespace orv::sysdiagnose
