#pragma once

#include <windows.h>

#include <utility>

namespace os {

/// Owns a handle of the system.
class Handle {
 public:
  Handle() = default;
  explicit Handle(HANDLE owned) : handle(owned == INVALID_HANDLE_VALUE ? nullptr : owned) {}
  Handle(Handle&& other) noexcept : handle(std::exchange(other.handle, nullptr)) {}
  Handle& operator=(Handle&& other) noexcept {
    std::swap(handle, other.handle);
    return *this;
  }
  ~Handle() { Close(); }

  HANDLE Get() const { return handle; }
  HANDLE Release() { return std::exchange(handle, nullptr); }
  explicit operator bool() const { return handle != nullptr; }
  void Close() {
    if (handle != nullptr) CloseHandle(std::exchange(handle, nullptr));
  }

 private:
  HANDLE handle = nullptr;
};

}  // namespace os
