#pragma once

#include <cstdint>

namespace x3 {

/// Identifies an interface: the hash of its name.
using InterfaceId = std::uint32_t;

/// value = value * 33 + byte over the name's bytes, each taken as signed, modulo 2^32.
constexpr InterfaceId HashName(const char* name) {
  InterfaceId hash = 0;
  for (; *name != '\0'; ++name)
    hash = hash * 33 +
           static_cast<InterfaceId>(static_cast<std::int32_t>(static_cast<signed char>(*name)));
  return hash;
}

/// The identifier of an interface, computed on first use and kept. `Interface` names itself in
/// kInterfaceName. Any thread.
template <typename Interface>
InterfaceId IdOf() {
  static const InterfaceId id = HashName(Interface::kInterfaceName);
  return id;
}

/// Root of every object that crosses modules. Objects are counted: who gets one owns one count and
/// gives it back with Release. The order of the operations is the binary contract.
class IObject {
 public:
  static constexpr const char* kInterfaceName = "IObject";

  virtual ~IObject() = default;
  virtual std::int32_t Retain() = 0;   // returns the new count
  virtual std::int32_t Release() = 0;  // returns the new count; at 0 the object is gone
  /// Writes this object, retained once, when it answers that interface; else leaves `out` alone.
  virtual bool Query(InterfaceId id, IObject** out) = 0;
  virtual const char* ClassId() const = 0;
  virtual const char* ClassName() const = 0;
};

}  // namespace x3
