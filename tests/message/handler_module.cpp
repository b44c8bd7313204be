// A module that registers a message handler and may be unloaded at any moment.

#include <memory>

#include "platform/message/ipc_message_client.h"

namespace {
std::unique_ptr<CIPCMessageClient> own;
}

// A handler on the caller's client, which outlives the module.
extern "C" ORV_EXPORT void RegisterOn(CIPCMessageClient* client, int* calls) {
  client->RegisterMessageCallback(1, [calls](const tagIPC_MESSAGE_ITEM&) { ++*calls; });
}

// A handler on the module's own client that calls `step` in the middle of its work.
extern "C" ORV_EXPORT void RegisterOwn(std::uint32_t moduleId, void (*step)(), int* calls) {
  own = std::make_unique<CIPCMessageClient>(moduleId, false);
  own->RegisterMessageCallback(1, [step, calls](const tagIPC_MESSAGE_ITEM&) {
    step();
    ++*calls;
  });
}
