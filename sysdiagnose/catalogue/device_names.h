#pragma once

#include <string>

#include "sysdiagnose/base/hardware_id.h"
#include "sysdiagnose/catalogue/hardware_info_source.h"

namespace orv::sysdiagnose {

/// Writes the category's device name; false when none was found, or for an id without a category.
bool DeviceName(enmHardwareID category, HardwareInfoSource& source, std::wstring& name);

/// What a category shows of its device: a summary, and a detail where one name is wanted.
struct DeviceTexts {
  std::wstring summary;
  std::wstring detail;
};

/// Empty texts for an id without a category.
DeviceTexts ReadDeviceTexts(enmHardwareID category, HardwareInfoSource& source);

}  // namespace orv::sysdiagnose
