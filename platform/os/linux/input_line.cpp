#include "platform/os/input_line.h"

#include <poll.h>
#include <unistd.h>

#include <cerrno>

#include "platform/os/linux/interrupt_event.h"

namespace os {
namespace {

// Waits until standard input can be read; false when an interrupt came.
bool WaitForInput() {
  pollfd waits[] = {{InterruptEvent(), POLLIN, 0}, {STDIN_FILENO, POLLIN, 0}};
  while (poll(waits, 2, -1) < 0 && errno == EINTR) {
  }
  return waits[0].revents == 0;
}

}  // namespace

InputEnd ReadInputLine(std::string& line) {
  line.clear();
  while (WaitForInput()) {
    char byte = 0;
    const ssize_t length = read(STDIN_FILENO, &byte, 1);
    if (length < 0 && errno == EINTR) continue;
    if (length <= 0) return line.empty() ? InputEnd::NoMore : InputEnd::Line;
    if (byte == '\n') return InputEnd::Line;
    line += byte;
  }
  return InputEnd::Interrupt;
}

}  // namespace os
