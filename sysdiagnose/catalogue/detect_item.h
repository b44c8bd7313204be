#pragma once

#include <string>

#include "sysdiagnose/base/hardware_id.h"

namespace orv::sysdiagnose {

/// One offered category as the category list names it.
struct tagDetectItem {
  enmHardwareID id{};
  std::wstring name;
  std::wstring description;
};

}  // namespace orv::sysdiagnose
