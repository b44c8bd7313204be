#include "platform/os/local_time.h"

#include <ctime>

namespace os {

LocalTime SystemLocalTime() {
  return LocalTimeAt(std::time(nullptr));
}

LocalTime LocalTimeAt(std::int64_t seconds) {
  const std::time_t time = seconds;
  std::tm parts{};
  localtime_r(&time, &parts);
  return {parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday,
          parts.tm_hour,        parts.tm_min,     parts.tm_sec};
}

}  // namespace os
