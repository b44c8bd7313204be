#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "sysdiagnose/base/hardware_id.h"
#include "sysdiagnose/records/ipc_data_io.h"

namespace orv::sysdiagnose {

/// Where a category of a run stands.
enum class DisplayState : std::uint32_t { Waiting = 0, Running = 1, Normal = 2, Abnormal = 3 };

/// One category of a run as the host's main page lists it.
struct DetectListEntry {
  std::wstring icon;
  std::wstring caption;
  std::wstring description;
  DisplayState state = DisplayState::Waiting;
  std::wstring resultText;
  bool repairable = false;
  bool selected = false;
  enmHardwareID category{};
};

/// What the host's main page shows of a run.
struct DiagnoseSummary {
  std::uint32_t moduleId = 0;
  std::wstring headline;  // a string id
  std::uint32_t abnormalCount = 0;
  std::wstring resultText;
  std::wstring detailText;
  std::vector<DetectListEntry> items;
  std::uint32_t interval = 0;  // milliseconds
  std::uint8_t flag1 = 0;      // the host's
  std::uint8_t flag2 = 0;
};

/// Sets everything but the items and the host's flags, by the states of the items.
void FillSummary(DiagnoseSummary& summary);

/// Writes the versioned body of a summary message.
void WriteSummary(IIPCDataIO& io, const DiagnoseSummary& summary);

/// Reads the versioned body of a summary message. Throws what reading a body throws.
void ReadSummary(IIPCDataIO& io, DiagnoseSummary& summary);

/// Writes the versioned body with which the plugin describes itself to the host's main page.
void WriteDescriptor(IIPCDataIO& io);

}  // namespace orv::sysdiagnose
