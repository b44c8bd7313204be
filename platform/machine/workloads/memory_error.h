#pragma once

#include <cstdint>
#include <functional>
#include <optional>

namespace machine {

/// Does the work. When the system reports meanwhile, for this thread, that memory has lost its
/// content beyond repair, the work ends there and the address of that memory comes back. Nothing
/// that the work holds is destroyed then: it must hold nothing. Not for use within itself.
std::optional<std::uintptr_t> CatchMemoryError(const std::function<void()>& work);

}  // namespace machine
