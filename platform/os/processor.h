#pragma once

#include <array>
#include <cstdint>

// The processor as the operating system counts it. Any thread.
namespace os {

/// Times since start in units of 100 nanoseconds, summed over all processors. Kernel includes idle.
struct SystemTimes {
  std::uint64_t idle = 0;
  std::uint64_t kernel = 0;
  std::uint64_t user = 0;
};

/// All zero when the system does not tell.
SystemTimes GetSystemTimes();

/// Number of logical processors.
std::uint32_t ProcessorCount();

/// Current clock of the first processor in megahertz, 0 when unknown.
std::uint32_t CurrentClockMhz();

/// The registers EAX, EBX, ECX, EDX after CPUID; zeros for a leaf the processor does not have.
std::array<std::uint32_t, 4> Cpuid(std::uint32_t leaf, std::uint32_t subleaf = 0);

}  // namespace os
