#include "platform/message/client_table.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace message {
namespace {

bool IsFor(const ClientState& client, std::uint32_t target) {
  return client.moduleId == target || client.groups.contains(target);
}

const Registration* Find(const ClientState& client, HandlerSlot slot, std::uint32_t target) {
  if (!IsFor(client, target)) return nullptr;
  const auto found = client.registrations.find(slot);
  return found == client.registrations.end() ? nullptr : &found->second;
}

}  // namespace

Client ClientTable::Add(std::uint32_t moduleId) {
  auto client = std::make_shared<ClientState>(moduleId);
  const std::lock_guard lock(mutex);
  clients.push_back(client);
  return client;
}

void ClientTable::Remove(const Client& client) {
  std::map<HandlerSlot, Registration> removed;  // destroyed after the lock is given up
  const std::lock_guard lock(mutex);
  std::erase(clients, client);
  client->groups.clear();
  client->registrations.swap(removed);
}

void ClientTable::Subscribe(const Client& client, std::uint32_t group) {
  const std::lock_guard lock(mutex);
  client->groups.insert(group);
}

bool ClientTable::Unsubscribe(const Client& client, std::uint32_t group) {
  const std::lock_guard lock(mutex);
  return client->groups.erase(group) > 0;
}

void ClientTable::Register(const Client& client, HandlerSlot slot, Registration registration) {
  const std::lock_guard lock(mutex);
  std::swap(client->registrations[slot], registration);  // the caller destroys what was there
}

void ClientTable::Unregister(const Client& client, HandlerSlot slot) {
  std::map<HandlerSlot, Registration>::node_type removed;  // destroyed after the lock is given up
  const std::lock_guard lock(mutex);
  removed = client->registrations.extract(slot);
}

std::vector<Client> ClientTable::Recipients(std::uint32_t target) {
  std::vector<Client> recipients;
  const std::lock_guard lock(mutex);
  std::copy_if(clients.begin(), clients.end(), std::back_inserter(recipients),
               [target](const Client& client) { return IsFor(*client, target); });
  return recipients;
}

std::set<std::uint32_t> ClientTable::Ids() {
  std::set<std::uint32_t> ids;
  const std::lock_guard lock(mutex);
  for (const Client& client : clients) {
    ids.insert(client->moduleId);
    ids.insert(client->groups.begin(), client->groups.end());
  }
  return ids;
}

std::optional<std::string> ClientTable::ModuleOf(const Client& client, HandlerSlot slot,
                                                 std::uint32_t target) {
  const std::lock_guard lock(mutex);
  const Registration* registration = Find(*client, slot, target);
  if (registration == nullptr) return std::nullopt;
  return registration->module;
}

std::shared_ptr<const Handler> ClientTable::HandlerOf(const Client& client, HandlerSlot slot,
                                                      std::uint32_t target,
                                                      const std::string& module) {
  const std::lock_guard lock(mutex);
  const Registration* registration = Find(*client, slot, target);
  if (registration == nullptr || registration->module != module) return nullptr;
  return registration->handler;
}

void ClientTable::DropOrphan(const Client& client, HandlerSlot slot, const std::string& module) {
  const std::lock_guard lock(mutex);
  const auto found = client->registrations.find(slot);
  if (found == client->registrations.end() || found->second.module != module) return;
  orphans.push_back(std::move(found->second.handler));
  client->registrations.erase(found);
}

ClientTable& Clients() {
  static auto& table = *new ClientTable;
  return table;
}

}  // namespace message
