#pragma once

#include "platform/machine/machine_files/json_node.h"
#include "platform/machine/machine_files/recorded_machine.h"

// Readers of the parts of a machine file. All throw MachineFileError.
namespace machine {

void ReadInfo(const JsonNode& section, Inventory& info);
void ReadTests(const JsonNode& section, Recording& recording);
void ReadRepairs(const JsonNode& section, Recording& recording);

}  // namespace machine
