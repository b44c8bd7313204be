#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/hardware_detect/hardware_detect.h"
#include "sysdiagnose/engine/detect_item_detail.h"

namespace orv::sysdiagnose {

/// SMART results of the library.
inline constexpr std::uint32_t kHealthyDisk = 1;
inline constexpr std::uint32_t kUnreadableDisk = 2;

/// Checks one disk: appends a record per SMART attribute in table order, writes the summary line
/// (every flag followed by ",", then the result minus 1, unsigned) and returns the result.
std::uint32_t EvaluateHddSmart(HardwareDetect::CDiskFaultDetect& diagnose, int diskIndex,
                               std::vector<tagDetectItemDetail>& records, std::string& csv);
std::uint32_t EvaluateSsdSmart(HardwareDetect::CDiskFaultDetect& diagnose, int diskIndex,
                               std::vector<tagDetectItemDetail>& records, std::string& csv);

}  // namespace orv::sysdiagnose
