#include "platform/machine/linux/memory_buffer.h"

#include <sys/mman.h>

#include <algorithm>
#include <utility>

#include "platform/machine/linux/firmware_info.h"

namespace machine {

std::size_t MemoryBuffer::FittingSize() {
  const std::uint64_t kilobytes = ReadMemoryRow("MemAvailable") / 8;
  const std::uint64_t whole = std::min<std::uint64_t>(kilobytes, kLargest / 1024) * 1024;
  return std::max(static_cast<std::size_t>(whole), kSmallest);
}

std::optional<MemoryBuffer> MemoryBuffer::Allocate(std::size_t bytes) {
  void* const mapped =
      mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  if (mapped == MAP_FAILED) return std::nullopt;
  MemoryBuffer buffer(mapped, bytes);
  mlock(mapped, bytes);  // best effort: most users may lock a few megabytes only
  return buffer;
}

MemoryBuffer::MemoryBuffer(MemoryBuffer&& other) noexcept
    : address(std::exchange(other.address, nullptr)), size(std::exchange(other.size, 0)) {}

MemoryBuffer& MemoryBuffer::operator=(MemoryBuffer&& other) noexcept {
  std::swap(address, other.address);
  std::swap(size, other.size);
  return *this;
}

MemoryBuffer::~MemoryBuffer() {
  if (address != nullptr) munmap(address, size);
}

std::span<volatile std::uint64_t> MemoryBuffer::Words() const {
  return {static_cast<volatile std::uint64_t*>(address), size / sizeof(std::uint64_t)};
}

}  // namespace machine
