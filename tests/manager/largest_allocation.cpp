#include "tests/manager/largest_allocation.h"

#include <cstdlib>
#include <new>

std::atomic<std::size_t> largestAllocation = 0;

void* operator new(std::size_t size) {
  std::size_t largest = largestAllocation;
  while (size > largest && !largestAllocation.compare_exchange_weak(largest, size)) {
  }
  if (void* memory = std::malloc(size)) return memory;
  throw std::bad_alloc();
}

void operator delete(void* memory) noexcept {
  std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
  std::free(memory);
}
