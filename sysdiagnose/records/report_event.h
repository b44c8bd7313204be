#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace orv::sysdiagnose {

/// Numbered events. Published numbers: only ever added to. docs/events.md describes the payloads.
enum class ReportEvent : std::uint32_t {
  ModuleEntered = 620000000,
  DiagnosisAsked = 620000001,  // "scan" on the history page
  ScanLeft = 620000002,        // "back" on the scan page
  DetectionAsked = 620000003,  // "detect" on the scan page
  DetectionCancelled = 620000004,
  ResultClosed = 620000005,  // "complete" on the detect page
  ScanCancelled = 620000006,
  HardwareScanned = 620000010,
  ProcessorTested = 620000020,
  MotherboardTested = 620000021,
  MemoryTested = 620000022,
  HardDiskTested = 620000023,
  SolidStateDiskTested = 620000024,
  GraphicsTested = 620000025,
  DisplayTested = 620000026,
  AudioTested = 620000027,
  NetworkTested = 620000028,
  BatteryTested = 620000029,
  DisksTested = 620000030,
  LoopBackLoad = 624000009,
};

/// Sends an event; one that cannot be sent is lost. Any thread.
void SendReportEvent(ReportEvent event, const std::string& payload);

/// Unsigned decimals with a separator between them.
std::string JoinNumbers(const std::vector<std::uint32_t>& numbers, char separator);

}  // namespace orv::sysdiagnose
