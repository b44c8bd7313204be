#include "platform/machine/workloads/system_memory.h"

#include <fstream>
#include <string>
#include <string_view>

#include "platform/os/paths.h"

namespace machine {
namespace {

/// A row of /proc/meminfo ("MemTotal") in kilobytes, 0 when there is no such row.
std::uint64_t ReadRow(std::string_view row) {
  std::ifstream meminfo(os::SystemPath("/proc/meminfo"));
  const std::string label = std::string(row) + ':';
  std::string name, rest;
  std::uint64_t kilobytes = 0;
  while (meminfo >> name >> kilobytes && std::getline(meminfo, rest))
    if (name == label) return kilobytes;
  return 0;
}

}  // namespace

SystemMemory ReadSystemMemory() {
  return {ReadRow("MemTotal"), ReadRow("MemAvailable")};
}

}  // namespace machine
