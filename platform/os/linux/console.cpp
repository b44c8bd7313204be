#include "platform/os/console.h"

#include <sys/ioctl.h>
#include <unistd.h>

namespace os {

void PrepareOutput() {}  // it is so already

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
