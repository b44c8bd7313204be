#include "platform/os/process_end.h"

#include <cstdlib>

namespace os {

void EndProcess(int exitStatus) {
  std::_Exit(exitStatus);
}

bool IsLastThreadOfEndingProcess() {
  return false;
}

}  // namespace os
