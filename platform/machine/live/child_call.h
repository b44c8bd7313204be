#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>

#include "platform/machine/interface/machine.h"

// Calls that may hang, made by the program hardware-probe, which answers in a machine file.
namespace machine {

/// Makes a test in a process of its own. Without an answer within the limit that process is killed,
/// and left to the system where even that takes time: the test could not be made then. Throws what
/// the test threw.
TestAnswer TestInChild(TestCall call, int disk, std::chrono::milliseconds limit);

/// Makes a repair in a process of its own, which is not killed at the limit and lives on when this
/// one ends, so that nothing stays half done. Without an answer the repair has failed.
RepairAnswer RepairInChild(RepairCall call, std::uint32_t code, std::chrono::milliseconds limit);

/// The program that makes them, beside the utility library unless set. For tests.
void SetProbeProgram(std::filesystem::path program);

}  // namespace machine
