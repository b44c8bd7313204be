#pragma once

#include "platform/machine/recorded/json_node.h"
#include "platform/machine/recorded/recorded_machine.h"

// Readers of the parts of a machine file. All throw MachineFileError.
namespace machine {

void ReadInfo(const JsonNode& section, Inventory& info);
void ReadTests(const JsonNode& section, Recording& recording);
void ReadRepairs(const JsonNode& section, Recording& recording);

}  // namespace machine
