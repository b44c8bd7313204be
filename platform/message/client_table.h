#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/message/ipc_message_client.h"

namespace message {

struct Registration {
  std::shared_ptr<const Handler> handler;
  std::string module;  // file of the module that the handler's code is in
};

/// Which of a client's handlers: the one of a message id, or the one of all messages (no value).
using HandlerSlot = std::optional<std::uint32_t>;

/// What is known of one client. Guarded by the table's lock, but for the module id.
struct ClientState {
  explicit ClientState(std::uint32_t id) : moduleId(id) {}

  const std::uint32_t moduleId;
  std::set<std::uint32_t> groups;
  std::map<HandlerSlot, Registration> registrations;
};

using Client = std::shared_ptr<ClientState>;

/// The clients of this process. Any thread. No code of a client runs under the lock, neither its
/// handlers nor their destructors.
class ClientTable {
 public:
  Client Add(std::uint32_t moduleId);
  void Remove(const Client& client);

  void Subscribe(const Client& client, std::uint32_t group);
  /// False when the client was not subscribed.
  bool Unsubscribe(const Client& client, std::uint32_t group);

  void Register(const Client& client, HandlerSlot slot, Registration registration);
  void Unregister(const Client& client, HandlerSlot slot);

  /// The clients that a message to this module or group is for, in the order they came.
  std::vector<Client> Recipients(std::uint32_t target);

  /// Every module id and group by which one of the clients is reached.
  std::set<std::uint32_t> Ids();

  /// The module of the handler that a message to `target` calls now; nothing if there is none.
  std::optional<std::string> ModuleOf(const Client& client, HandlerSlot slot, std::uint32_t target);

  /// That handler itself, if it is still one of this module; else null. The module is pinned.
  std::shared_ptr<const Handler> HandlerOf(const Client& client, HandlerSlot slot,
                                           std::uint32_t target, const std::string& module);

  /// Drops a handler whose module was unloaded without unregistering it.
  void DropOrphan(const Client& client, HandlerSlot slot, const std::string& module);

 private:
  std::mutex mutex;
  std::vector<Client> clients;
  // Never destroyed: the code that would destroy them is gone.
  std::vector<std::shared_ptr<const Handler>> orphans;
};

/// The table of this process, never destroyed.
ClientTable& Clients();

}  // namespace message
