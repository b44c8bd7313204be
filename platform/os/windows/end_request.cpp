#include "platform/os/windows/end_request.h"

#include <string>

namespace os {
namespace {

std::wstring EventName(DWORD processId) {
  return L"Local\\sysdiagnose.end." + std::to_wstring(processId);
}

}  // namespace

Handle ListenForEndRequests() {
  return Handle(CreateEventW(nullptr, FALSE, FALSE, EventName(GetCurrentProcessId()).c_str()));
}

bool RequestEnd(DWORD processId) {
  const Handle event(OpenEventW(EVENT_MODIFY_STATE, FALSE, EventName(processId).c_str()));
  return event && SetEvent(event.Get()) != 0;
}

}  // namespace os
