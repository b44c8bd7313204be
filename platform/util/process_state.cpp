#include "platform/os/process_state.h"

#include "platform/os/export.h"

// The utility library is loaded once a process, whatever else is, and so keeps what is set for all.
extern "C" UTIL_API os::ProcessState* orvProcessState() {
  static os::ProcessState& state = *new os::ProcessState;
  return &state;
}
