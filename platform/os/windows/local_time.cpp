#include "platform/os/local_time.h"

#include "platform/os/windows/handle.h"

namespace os {
namespace {

LocalTime PartsOf(const SYSTEMTIME& time) {
  return {time.wYear, time.wMonth, time.wDay, time.wHour, time.wMinute, time.wSecond};
}

}  // namespace

LocalTime SystemLocalTime() {
  SYSTEMTIME now{};
  GetLocalTime(&now);
  return PartsOf(now);
}

LocalTime LocalTimeAt(std::int64_t seconds) {
  // File times count steps of 100 ns from 1601-01-01.
  constexpr std::int64_t kStepsPerSecond = 10'000'000;
  constexpr std::int64_t kSecondsTo1970 = 11'644'473'600;
  const std::int64_t steps = (seconds + kSecondsTo1970) * kStepsPerSecond;
  const FILETIME file{static_cast<DWORD>(steps), static_cast<DWORD>(steps >> 32)};
  SYSTEMTIME universal{};
  SYSTEMTIME local{};
  FileTimeToSystemTime(&file, &universal);
  SystemTimeToTzSpecificLocalTime(nullptr, &universal, &local);
  return PartsOf(local);
}

}  // namespace os
