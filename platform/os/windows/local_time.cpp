#include "platform/os/local_time.h"

#include "platform/os/windows/handle.h"

namespace os {

LocalTime SystemLocalTime() {
  SYSTEMTIME now{};
  GetLocalTime(&now);
  return {now.wYear, now.wMonth, now.wDay, now.wHour, now.wMinute, now.wSecond};
}

}  // namespace os
