#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "platform/concurrency/message_blocks.h"
#include "platform/os/processor.h"

namespace orv::sysdiagnose {

/// Percent of the time between two readings that the processors were not idle, 0 to 100; 0 when the
/// counts did not move forward.
std::uint32_t LoadPercent(const os::SystemTimes& before, const os::SystemTimes& now);

/// Samples processor load and clock every 200 milliseconds while a test runs, and reports them.
///
/// Call order: Start, ticks, StopAndReport. Owned by the audio runner, on whose thread both are
/// called; ticks come on a runtime thread.
class BIReport {
 public:
  void Start();
  void StopAndReport();

 private:
  void Sample();

  os::SystemTimes previous;
  std::vector<std::uint32_t> loads;         // percent
  std::vector<std::uint32_t> clocks;        // megahertz
  std::vector<std::uint32_t> temperatures;  // always 0: no sensor is read
  std::optional<concurrency::call<BIReport*>> target;
  std::optional<concurrency::timer<BIReport*>> timer;  // after its target
};

}  // namespace orv::sysdiagnose
