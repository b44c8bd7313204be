#include "tests/machine/workloads/aliased_pages.h"

#include <windows.h>

AliasedPages::AliasedPages() {
  HANDLE const pages = CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0,
                                          static_cast<DWORD>(kPart), nullptr);
  if (pages == nullptr) return;
  // Room for both that is free again by the time they are put there.
  void* const room = VirtualAlloc(nullptr, 2 * kPart, MEM_RESERVE, PAGE_NOACCESS);
  VirtualFree(room, 0, MEM_RELEASE);
  first = static_cast<char*>(MapViewOfFileEx(pages, FILE_MAP_WRITE, 0, 0, kPart, room));
  isMapped = first != nullptr &&
             MapViewOfFileEx(pages, FILE_MAP_WRITE, 0, 0, kPart, first + kPart) == first + kPart;
  CloseHandle(pages);
}

AliasedPages::~AliasedPages() {
  if (first != nullptr) UnmapViewOfFile(first);
  if (isMapped) UnmapViewOfFile(first + kPart);
}
