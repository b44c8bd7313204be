#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "sysdiagnose/environment/machine_list.h"

namespace orv::sysdiagnose {

/// Which model this device is. The model list is loaded on first need and kept while it holds
/// entries; calls are for one thread at a time.
class SystemEnvironment {
 public:
  /// The code name of the model, by the firmware's product name, else by the product version; empty
  /// when unknown.
  static std::string GetMachineType();

  /// The code name and position in the model list that the firmware's product name stands for;
  /// empty and -1 when there is none.
  static void GetDeviceTypeFromSMBIOS(std::string& type, std::int32_t& position);

  /// Loads config\MachineTypeList.xml of the utility library's folder. Throws nothing; faults are
  /// logged and leave the list as it was filled so far, a missing file leaves it alone.
  static void GetSupportMachineList(std::vector<MachineEntry>& list);

  /// The product version: of the maker's version file, which is then kept in the registry, or else
  /// as the registry has it. Without control characters, trimmed, cut at its first "_"; empty when
  /// unknown or of 64 characters or more.
  static std::string GetProductVersion();
};

}  // namespace orv::sysdiagnose
