// event_setter <handle>: sets the event of this handle, if this program has got it.

#include <windows.h>

#include <cstdint>
#include <cstdlib>

int main(int count, char** words) {
  if (count != 2) return 2;
  const auto number = static_cast<std::uintptr_t>(std::strtoull(words[1], nullptr, 10));
  SetEvent(reinterpret_cast<HANDLE>(number));
  return 0;
}
