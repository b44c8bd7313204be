#include "platform/os/processor.h"

#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <istream>
#include <limits>
#include <locale>
#include <sstream>
#include <string>

#include "platform/os/paths.h"

namespace os {
namespace {

constexpr std::uint64_t kUnitsPerSecond = 10'000'000;

/// The first line of /proc/stat, in clock ticks. Waiting for a disk counts as idle; time that a
/// hypervisor took away counts nowhere.
SystemTimes ParseTicks(std::istream& stat) {
  std::string label;
  std::uint64_t user = 0, nice = 0, system = 0, idle = 0, ioWait = 0, interrupt = 0, soft = 0;
  if (!(stat >> label >> user >> nice >> system >> idle) || label != "cpu") return {};
  stat >> ioWait >> interrupt >> soft;
  const std::uint64_t allIdle = idle + ioWait;
  return {allIdle, system + interrupt + soft + allIdle, user + nice};
}

double ParseCpuinfoMhz(std::istream& cpuinfo) {
  for (std::string line; std::getline(cpuinfo, line);) {
    if (!line.starts_with("cpu MHz")) continue;
    const std::size_t colon = line.find(':');
    if (colon == std::string::npos) return 0;
    // Not std::stod: it throws, and it would read the number by the user's locale.
    std::istringstream number(line.substr(colon + 1));
    number.imbue(std::locale::classic());
    double megahertz = 0;
    number >> megahertz;
    return megahertz;
  }
  return 0;
}

std::uint32_t WholeMhz(double megahertz) {
  if (!(megahertz > 0) || megahertz > std::numeric_limits<std::uint32_t>::max()) return 0;
  return static_cast<std::uint32_t>(megahertz);
}

}  // namespace

SystemTimes GetSystemTimes() {
  std::ifstream stat(SystemPath("/proc/stat"));
  const long ticksPerSecond = sysconf(_SC_CLK_TCK);
  if (ticksPerSecond <= 0) return {};
  const std::uint64_t unitsPerTick = kUnitsPerSecond / static_cast<std::uint64_t>(ticksPerSecond);
  SystemTimes times = ParseTicks(stat);
  for (std::uint64_t* count : {&times.idle, &times.kernel, &times.user}) *count *= unitsPerTick;
  return times;
}

std::uint32_t ProcessorCount() {
  return static_cast<std::uint32_t>(std::max(sysconf(_SC_NPROCESSORS_ONLN), 0L));
}

std::uint32_t CurrentClockMhz() {
  std::ifstream frequency(SystemPath("/sys/devices/system/cpu/cpu0/cpufreq/scaling_cur_freq"));
  if (double kilohertz = 0; frequency >> kilohertz) return WholeMhz(kilohertz / 1000);
  std::ifstream cpuinfo(SystemPath("/proc/cpuinfo"));
  return WholeMhz(ParseCpuinfoMhz(cpuinfo));
}

}  // namespace os
