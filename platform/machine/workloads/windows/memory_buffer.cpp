#include "platform/machine/workloads/memory_buffer.h"

#include <windows.h>

#include <mutex>

namespace machine {
namespace {

/// A process may lock about as much as its least working set, which has to grow with the buffers.
class WorkingSet {
 public:
  static WorkingSet& OfThisProcess() {
    static auto& workingSet = *new WorkingSet;
    return workingSet;
  }

  void Grow(SIZE_T bytes) {
    const std::lock_guard lock(mutex);
    if (added == 0)
      isKnown = GetProcessWorkingSetSize(GetCurrentProcess(), &smallest, &largest) != 0;
    added += bytes;
    Apply();
  }

  void Shrink(SIZE_T bytes) {
    const std::lock_guard lock(mutex);
    added -= bytes;
    Apply();
  }

 private:
  void Apply() {
    if (isKnown) SetProcessWorkingSetSize(GetCurrentProcess(), smallest + added, largest + added);
  }

  std::mutex mutex;
  SIZE_T smallest = 0;
  SIZE_T largest = 0;
  SIZE_T added = 0;
  bool isKnown = false;
};

}  // namespace

std::optional<MemoryBuffer> MemoryBuffer::Allocate(std::size_t bytes) {
  void* const mapped = VirtualAlloc(nullptr, bytes, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE);
  if (mapped == nullptr) return std::nullopt;
  MemoryBuffer buffer(mapped, bytes);
  WorkingSet::OfThisProcess().Grow(bytes);
  VirtualLock(mapped, bytes);  // best effort: the user may not be allowed that much
  return buffer;
}

MemoryBuffer::~MemoryBuffer() {
  if (address == nullptr) return;
  VirtualFree(address, 0, MEM_RELEASE);
  WorkingSet::OfThisProcess().Shrink(size);
}

}  // namespace machine
