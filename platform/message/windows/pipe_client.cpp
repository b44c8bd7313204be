#include "platform/message/windows/pipe_client.h"

#include "platform/message/windows/user.h"

namespace message {

os::Handle OpenPipe(const std::filesystem::path& name) {
  return os::Handle(
      CreateFileW(name.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                  FILE_FLAG_OVERLAPPED | SECURITY_SQOS_PRESENT | SECURITY_IDENTIFICATION, nullptr));
}

// The number of a process is given again when it has ended; the owner of the pipe stays.
bool IsServedByUser(HANDLE pipe) {
  ULONG process = 0;
  return IsPipeOfUser(pipe) && GetNamedPipeServerProcessId(pipe, &process) != 0 &&
         IsProcessOfUser(process).value_or(true);
}

}  // namespace message
