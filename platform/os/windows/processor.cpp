#include "platform/os/processor.h"

#include <memory>
#include <new>

#include "platform/os/windows/handle.h"

// After the header that its types come from.
#include <powrprof.h>

namespace os {
namespace {

// What CallNtPowerInformation gives for each processor at level 11, clocks in megahertz.
struct ProcessorPowerInformation {
  std::uint32_t number;
  std::uint32_t maxMhz;
  std::uint32_t currentMhz;
  std::uint32_t mhzLimit;
  std::uint32_t maxIdleState;
  std::uint32_t currentIdleState;
};
static_assert(sizeof(ProcessorPowerInformation) == 24);
static_assert(ProcessorInformation == 11);

std::uint64_t Number(const FILETIME& time) {
  return std::uint64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime;
}

}  // namespace

SystemTimes GetSystemTimes() {
  FILETIME idle{};
  FILETIME kernel{};
  FILETIME user{};
  if (::GetSystemTimes(&idle, &kernel, &user) == 0) return {};
  return {Number(idle), Number(kernel), Number(user)};
}

std::uint32_t ProcessorCount() {
  SYSTEM_INFO info{};
  GetSystemInfo(&info);
  return info.dwNumberOfProcessors;
}

std::uint32_t CurrentClockMhz() {
  const std::uint32_t count = ProcessorCount();
  if (count == 0) return 0;
  const std::unique_ptr<ProcessorPowerInformation[]> processors(
      new (std::nothrow) ProcessorPowerInformation[count]());
  if (!processors) return 0;
  const ULONG size = count * sizeof(ProcessorPowerInformation);
  const LONG status =
      CallNtPowerInformation(ProcessorInformation, nullptr, 0, processors.get(), size);
  return status == 0 ? processors[0].currentMhz : 0;
}

}  // namespace os
