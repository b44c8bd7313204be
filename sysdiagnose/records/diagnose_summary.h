#pragma once

#include "common/protocol/module_descriptor.h"
#include "common/protocol/summary.h"
#include "sysdiagnose/base/hardware_id.h"

namespace orv::sysdiagnose {

using protocol::DetectListEntry;
using protocol::DiagnoseSummary;
using protocol::DisplayState;

inline bool IsOf(const DetectListEntry& entry, enmHardwareID category) {
  return entry.category == static_cast<std::int32_t>(category);
}

/// Sets everything but the items and the host's flags, by the states of the items.
void FillSummary(DiagnoseSummary& summary);

/// The plugin as it describes itself to the host's main page.
protocol::ModuleDescriptor PluginDescriptor();

}  // namespace orv::sysdiagnose
