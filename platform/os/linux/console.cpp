#include "platform/os/console.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <csignal>

namespace os {

// It is so already, but for a reader that goes away: that ends a write, not the program.
void PrepareOutput() {
  std::signal(SIGPIPE, SIG_IGN);
}

bool OutputIsTerminal() {
  return isatty(STDOUT_FILENO) == 1;
}

std::size_t OutputColumns() {
  winsize size{};
  return ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 ? size.ws_col : 0;
}

bool InputIsTerminal() {
  return isatty(STDIN_FILENO) == 1;
}

}  // namespace os
