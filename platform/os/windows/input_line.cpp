#include "platform/os/input_line.h"

#include <memory>
#include <thread>
#include <utility>

#include "platform/os/windows/interrupt_event.h"

namespace os {
namespace {

struct Reading {
  const Handle done{CreateEventW(nullptr, TRUE, FALSE, nullptr)};
  std::string line;  // both as soon as it is done
  InputEnd end = InputEnd::Line;
};

InputEnd ReadLine(std::string& line) {
  HANDLE input = GetStdHandle(STD_INPUT_HANDLE);
  for (;;) {
    char byte = 0;
    DWORD length = 0;
    SetLastError(ERROR_SUCCESS);
    const bool isRead = ReadFile(input, &byte, 1, &length, nullptr) != 0;
    // So a console ends a read at Ctrl-C, perhaps before the interrupt's handler is called.
    if (GetLastError() == ERROR_OPERATION_ABORTED) return InputEnd::Interrupt;
    if (!isRead || length == 0) return line.empty() ? InputEnd::NoMore : InputEnd::Line;
    if (byte == '\n') break;
    line += byte;
  }
  if (line.ends_with('\r')) line.pop_back();
  return InputEnd::Line;
}

}  // namespace

// A thread of its own reads, because nothing ends every read of a console. It is left behind at an
// interrupt, and goes with the process.
InputEnd ReadInputLine(std::string& line) {
  line.clear();
  HANDLE interrupt = InterruptEvent();
  if (WaitForSingleObject(interrupt, 0) == WAIT_OBJECT_0) return InputEnd::Interrupt;
  const auto reading = std::make_shared<Reading>();
  std::thread([reading] {
    reading->end = ReadLine(reading->line);
    SetEvent(reading->done.Get());
  }).detach();
  HANDLE waits[] = {interrupt, reading->done.Get()};
  if (WaitForMultipleObjects(2, waits, FALSE, INFINITE) == WAIT_OBJECT_0)
    return InputEnd::Interrupt;
  line = std::move(reading->line);
  return reading->end;
}

}  // namespace os
