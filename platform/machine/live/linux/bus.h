#pragma once

#include <sdbus-c++/sdbus-c++.h>

#include <memory>
#include <string>

// The message buses that services of the system and of the user's session answer on.
namespace machine {

/// How long one question to a service may take. In microseconds, as the library counts.
inline constexpr std::uint64_t kServicePatience = 5'000'000;

/// Null where no such bus can be reached. The session's is asked for this system only, not for one
/// that lies below another root.
std::unique_ptr<sdbus::IConnection> ConnectToSystemBus();
std::unique_ptr<sdbus::IConnection> ConnectToSessionBus();

/// Whether a service of this name runs.
bool IsRunning(sdbus::IConnection& bus, const std::string& service);

/// Whether a service of this name runs or is started by asking it.
bool CanBeAsked(sdbus::IConnection& bus, const std::string& service);

/// An object of a service. Questions to it throw sdbus::Error.
std::unique_ptr<sdbus::IProxy> ObjectOf(sdbus::IConnection& bus, const std::string& service,
                                        const std::string& path);

/// A property of an object.
sdbus::Variant ReadProperty(sdbus::IProxy& object, const std::string& interface,
                            const std::string& name);

}  // namespace machine
