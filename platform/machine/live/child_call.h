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

/// As TestInChild for a repair, which has failed without an answer. What it has begun to do to a
/// device comes to its end all the same.
RepairAnswer RepairInChild(RepairCall call, std::uint32_t code, std::chrono::milliseconds limit);

/// The program that makes them, beside the utility library unless set. For tests.
void SetProbeProgram(std::filesystem::path program);

}  // namespace machine
