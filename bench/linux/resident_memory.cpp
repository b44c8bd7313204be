#include "bench/resident_memory.h"

#include <unistd.h>

#include <fstream>

std::size_t ResidentMemory() {
  std::size_t whole = 0;
  std::size_t resident = 0;
  std::ifstream("/proc/self/statm") >> whole >> resident;
  return resident * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
}
