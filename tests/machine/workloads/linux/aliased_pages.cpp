#include "tests/machine/workloads/aliased_pages.h"

#include <sys/mman.h>
#include <unistd.h>

AliasedPages::AliasedPages() {
  const int file = memfd_create("aliased", MFD_CLOEXEC);
  if (file < 0 || ftruncate(file, kPart) != 0) return;
  void* const room = mmap(nullptr, 2 * kPart, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  if (room != MAP_FAILED) first = static_cast<char*>(room);
  for (char* at = first; first != nullptr && at < first + 2 * kPart; at += kPart)
    isMapped = mmap(at, kPart, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_FIXED, file, 0) == at;
  close(file);
}

AliasedPages::~AliasedPages() {
  if (first != nullptr) munmap(first, 2 * kPart);
}
