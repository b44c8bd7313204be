#include "platform/machine/workloads/memory_buffer.h"

#include <algorithm>
#include <utility>

#include "platform/machine/workloads/system_memory.h"

namespace machine {

std::size_t MemoryBuffer::FittingSize() {
  const std::uint64_t kilobytes = ReadSystemMemory().availableKilobytes / 8;
  const std::uint64_t whole = std::min<std::uint64_t>(kilobytes, kLargest / 1024) * 1024;
  return std::max(static_cast<std::size_t>(whole), kSmallest);
}

MemoryBuffer::MemoryBuffer(MemoryBuffer&& other) noexcept
    : address(std::exchange(other.address, nullptr)), size(std::exchange(other.size, 0)) {}

MemoryBuffer& MemoryBuffer::operator=(MemoryBuffer&& other) noexcept {
  std::swap(address, other.address);
  std::swap(size, other.size);
  return *this;
}

std::span<volatile std::uint64_t> MemoryBuffer::Words() const {
  return {static_cast<volatile std::uint64_t*>(address), size / sizeof(std::uint64_t)};
}

}  // namespace machine
