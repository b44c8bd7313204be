#pragma once

#include <chrono>
#include <map>
#include <optional>
#include <vector>

#include "sysdiagnose/base/hardware_id.h"

namespace cli {

/// How far a run has come, by how long its categories took before.
class Progress {
 public:
  using Durations = std::map<orv::sysdiagnose::enmHardwareID, std::chrono::milliseconds>;

  struct Shown {
    int percent = 0;
    std::chrono::milliseconds left{0};
  };

  Progress(const std::vector<orv::sysdiagnose::enmHardwareID>& selection, const Durations& known);

  /// With the category at `position` under way for `elapsed`. Nothing when it is not known of each
  /// category how long it takes.
  std::optional<Shown> At(std::size_t position, std::chrono::milliseconds elapsed) const;

 private:
  std::vector<std::chrono::milliseconds> expected;  // by position; empty: unknown
  std::chrono::milliseconds all{0};
};

}  // namespace cli
