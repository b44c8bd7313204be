#include <cpuid.h>

#include "platform/os/processor.h"

namespace os {

std::array<std::uint32_t, 4> Cpuid(std::uint32_t leaf, std::uint32_t subleaf) {
  std::array<std::uint32_t, 4> registers{};
  // Fails for a leaf above the processor's highest one, and leaves the registers alone.
  __get_cpuid_count(leaf, subleaf, &registers[0], &registers[1], &registers[2], &registers[3]);
  return registers;
}

}  // namespace os
