#include "platform/os/process_state.h"

#include "platform/os/module.h"
#include "platform/os/workers.h"

namespace os {
namespace {

ProcessState& Find() {
  void* const found = FindProcedure(FindLoadedModule("Util.dll"), kProcessStateFunction);
  const auto give = reinterpret_cast<ProcessStateFunction>(found);
  return give == nullptr ? *new ProcessState : *give();
}

}  // namespace

ProcessState::ProcessState()
    : home(reinterpret_cast<const void*>(&State)), isWorker(&detail::IsWorkerOfThisModule) {}

ProcessState& State() {
  static ProcessState& state = Find();
  return state;
}

}  // namespace os
