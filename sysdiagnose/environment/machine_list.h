#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace orv::sysdiagnose {

/// One model: its code name and the product names of the firmware that mean it.
struct MachineEntry {
  std::string type;
  std::vector<std::string> signList;
};

/// Appends the models of a model list to `list`; false when the text has no list. An entry without
/// a type or signs of its own takes those of the entry before it. `name` stands in error messages;
/// throws common::XmlError.
bool ParseMachineList(std::string_view xml, std::string_view name, std::vector<MachineEntry>& list);

}  // namespace orv::sysdiagnose
