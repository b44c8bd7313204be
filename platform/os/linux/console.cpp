#include "platform/os/console.h"

#include <unistd.h>

namespace os {

void PrepareOutput() {}  // it is so already

bool OutputIsTerminal() {
  return isatty(STDOUT_FILENO) == 1;
}

bool InputIsTerminal() {
  return isatty(STDIN_FILENO) == 1;
}

}  // namespace os
