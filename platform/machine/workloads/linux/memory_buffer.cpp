#include "platform/machine/workloads/memory_buffer.h"

#include <sys/mman.h>

namespace machine {

std::optional<MemoryBuffer> MemoryBuffer::Allocate(std::size_t bytes) {
  void* const mapped =
      mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  if (mapped == MAP_FAILED) return std::nullopt;
  MemoryBuffer buffer(mapped, bytes);
  mlock(mapped, bytes);  // best effort: most users may lock a few megabytes only
  return buffer;
}

MemoryBuffer::~MemoryBuffer() {
  if (address != nullptr) munmap(address, size);
}

}  // namespace machine
