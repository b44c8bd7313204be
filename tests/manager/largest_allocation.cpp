#include "tests/manager/largest_allocation.h"

#include <cstdlib>
#include <new>

std::atomic<std::size_t> largestAllocation = 0;

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  std::size_t largest = largestAllocation;
  while (size > largest && !largestAllocation.compare_exchange_weak(largest, size)) {
  }
  return std::malloc(size);
}

void* operator new(std::size_t size) {
  if (void* memory = operator new(size, std::nothrow)) return memory;
  throw std::bad_alloc();
}

void operator delete(void* memory) noexcept {
  std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
  std::free(memory);
}

void operator delete(void* memory, const std::nothrow_t&) noexcept {
  std::free(memory);
}
