#pragma once

#include <cstddef>
#include <span>

namespace machine {

/// The structures in what GetSystemFirmwareTable gives for 'RSMB': a header of eight bytes, the
/// last four the length of the structures behind it. Empty when there is no whole header; never
/// more than the bytes that are there.
std::span<const std::byte> StructuresOf(std::span<const std::byte> raw);

}  // namespace machine
