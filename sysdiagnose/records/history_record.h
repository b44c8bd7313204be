#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "sysdiagnose/base/hardware_id.h"

namespace orv::sysdiagnose {

/// Result of a category in a run.
inline constexpr int kNotTested = -1;
inline constexpr int kNormal = 0;
inline constexpr int kAbnormal = 1;

/// One run. The fields stand in the order of the stored cells; docs/history.md lists them.
template <typename Integer>
struct BasicHistoryRecord {
  std::array<Integer, kHardwareIdCount> results{};  // in the order of kRecordOrder
  Integer passCount = 0;
  Integer failCount = 0;
  std::string date;        // local, "2019.03.07"
  std::string dateTime;    // local, "2019.03.07.09.05.00"
  Integer secondTime = 0;  // seconds since 1970-01-01 00:00:00 UTC

  bool operator==(const BasicHistoryRecord&) const = default;
};

/// A run as the queries hand it back: integers cut to 32 bits.
using HistoryRecord = BasicHistoryRecord<std::int32_t>;

/// A run as it is filled while it goes on.
using RunRecord = BasicHistoryRecord<std::int64_t>;

/// The record of a run in which nothing has been tested and nothing stored.
RunRecord FreshRunRecord();

/// The order of the twelve results.
inline constexpr auto kRecordOrder = std::to_array<enmHardwareID>(
    {enmHardwareID::Processor, enmHardwareID::Motherboard, enmHardwareID::Memory,
     enmHardwareID::Disk, enmHardwareID::GraphicsCard, enmHardwareID::Display, enmHardwareID::Audio,
     enmHardwareID::NetworkCard, enmHardwareID::Bluetooth, enmHardwareID::Battery,
     enmHardwareID::Keyboard, enmHardwareID::Fingerprint});
static_assert(kRecordOrder.size() == kHardwareIdCount);

/// Where a category's result stands, or null for an id without a category.
std::int64_t* ResultOf(RunRecord& record, enmHardwareID category);

}  // namespace orv::sysdiagnose
