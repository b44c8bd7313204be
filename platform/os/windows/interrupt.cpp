#include "platform/os/interrupt.h"

#include <atomic>

#include "platform/os/process_end.h"
#include "platform/os/windows/end_request.h"
#include "platform/os/windows/interrupt_event.h"

namespace os {
namespace {

std::atomic<void (*)()> firstInterrupt = nullptr;
std::atomic<int> secondExitStatus = 1;

void Interrupted() {
  void (*handler)() = firstInterrupt.exchange(nullptr);
  if (handler == nullptr) EndProcess(secondExitStatus);
  handler();
  SetEvent(InterruptEvent());
}

// Runs on a thread of its own.
BOOL WINAPI OnConsoleEvent(DWORD event) {
  Interrupted();
  // The system ends the process as soon as this returns for any other event.
  if (event != CTRL_C_EVENT && event != CTRL_BREAK_EVENT) Sleep(INFINITE);
  return TRUE;
}

void CALLBACK OnEndRequest(void*, BOOLEAN) {
  Interrupted();
}

void ListenOnce() {
  SetConsoleCtrlHandler(&OnConsoleEvent, TRUE);
  static Handle& request = *new Handle(ListenForEndRequests());
  HANDLE registration = nullptr;
  RegisterWaitForSingleObject(&registration, request.Get(), &OnEndRequest, nullptr, INFINITE,
                              WT_EXECUTEDEFAULT);
}

}  // namespace

HANDLE InterruptEvent() {
  static Handle& event = *new Handle(CreateEventW(nullptr, TRUE, FALSE, nullptr));
  return event.Get();
}

void WaitForInterrupt() {
  WaitForSingleObject(InterruptEvent(), INFINITE);
}

void OnInterrupt(void (*handler)(), int exitStatus) {
  ResetEvent(InterruptEvent());
  firstInterrupt = handler;
  secondExitStatus = exitStatus;
  static const bool listening = (ListenOnce(), true);
  (void)listening;
}

}  // namespace os
