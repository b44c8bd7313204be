#pragma once

#include <string>
#include <utility>

#include "platform/os/module.h"

namespace os {

/// Keeps one module loaded while work that it handed to a platform library waits or runs.
///
/// Destroy every object of the pinned module before its pin: giving up the last pin may unload the
/// module, on the thread that gives it up. The running program needs no pin and gets an empty one.
class ModulePin {
 public:
  ModulePin() = default;
  ModulePin(ModulePin&& other) noexcept : module(std::exchange(other.module, nullptr)) {}
  ModulePin& operator=(ModulePin&& other) noexcept {
    std::swap(module, other.module);
    return *this;
  }
  ModulePin(const ModulePin&) = delete;
  ModulePin& operator=(const ModulePin&) = delete;
  ~ModulePin() { ReleaseModule(module); }

  /// Pins the module that holds this address; the caller runs in it, so it is loaded.
  static ModulePin OfAddress(const void* address);

  /// Pins the module of this file (as ModuleFileOfAddress gives it) if it is still loaded. `loaded`
  /// is false when it is gone. An empty name stands for the running program.
  static ModulePin OfFile(const std::string& file, bool& loaded);

 private:
  explicit ModulePin(ModuleHandle pinned) : module(pinned) {}

  ModuleHandle module = nullptr;
};

namespace detail {
// One copy per callable type; a callable's type belongs to the module that wrote it.
template <typename Callable>
void Anchor() {}
}  // namespace detail

/// An address inside the module that instantiates this: hand it to the pinning functions.
template <typename Callable>
const void* AddressInCaller() {
  return reinterpret_cast<const void*>(&detail::Anchor<Callable>);
}

}  // namespace os
