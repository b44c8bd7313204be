#include "platform/machine/live/linux/bus.h"

#include <algorithm>
#include <cstdlib>
#include <vector>

#include "platform/machine/live/linux/system_file.h"
#include "platform/os/paths.h"

namespace machine {
namespace {

constexpr const char* kBus = "org.freedesktop.DBus";
constexpr const char* kBusPath = "/org/freedesktop/DBus";
constexpr const char* kProperties = "org.freedesktop.DBus.Properties";
constexpr const char* kSystemSocket = "/run/dbus/system_bus_socket";

bool IsOtherSystem() {
  return os::SystemPath("/") != "/";
}

std::string Variable(const char* name) {
  const char* const value = std::getenv(name);
  return value == nullptr ? std::string() : value;
}

std::unique_ptr<sdbus::IConnection> Connect(const std::string& address) try {
  if (address.empty()) return nullptr;
  return sdbus::createSessionBusConnectionWithAddress(address);
} catch (const sdbus::Error&) {
  return nullptr;
}

std::vector<std::string> Names(sdbus::IProxy& bus, const char* list) {
  std::vector<std::string> names;
  bus.callMethod(list).onInterface(kBus).withTimeout(kServicePatience).storeResultsTo(names);
  return names;
}

}  // namespace

std::unique_ptr<sdbus::IConnection> ConnectToSystemBus() {
  const std::string address = Variable("DBUS_SYSTEM_BUS_ADDRESS");
  if (!IsOtherSystem() && !address.empty()) return Connect(address);
  const std::string socket = os::SystemPath(kSystemSocket).string();
  return Exists(socket) ? Connect("unix:path=" + socket) : nullptr;
}

std::unique_ptr<sdbus::IConnection> ConnectToSessionBus() {
  return IsOtherSystem() ? nullptr : Connect(Variable("DBUS_SESSION_BUS_ADDRESS"));
}

bool IsRunning(sdbus::IConnection& bus, const std::string& service) {
  return std::ranges::count(Names(*ObjectOf(bus, kBus, kBusPath), "ListNames"), service) > 0;
}

bool CanBeAsked(sdbus::IConnection& bus, const std::string& service) {
  return IsRunning(bus, service) ||
         std::ranges::count(Names(*ObjectOf(bus, kBus, kBusPath), "ListActivatableNames"),
                            service) > 0;
}

std::unique_ptr<sdbus::IProxy> ObjectOf(sdbus::IConnection& bus, const std::string& service,
                                        const std::string& path) {
  return sdbus::createProxy(bus, service, path);
}

sdbus::Variant ReadProperty(sdbus::IProxy& object, const std::string& interface,
                            const std::string& name) {
  sdbus::Variant value;
  object.callMethod("Get")
      .onInterface(kProperties)
      .withTimeout(kServicePatience)
      .withArguments(interface, name)
      .storeResultsTo(value);
  return value;
}

}  // namespace machine
