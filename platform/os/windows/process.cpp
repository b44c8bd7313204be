#include "platform/os/process.h"

#include <algorithm>
#include <array>
#include <limits>
#include <thread>

#include "platform/os/process_fault.h"
#include "platform/os/windows/start_process.h"

namespace os {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::size_t kOutputLimit = std::size_t{4} << 20;

struct Pipe {
  Handle readEnd;
  Handle writeEnd;  // inheritable
};

Pipe MakePipe() {
  HANDLE readEnd = nullptr;
  HANDLE writeEnd = nullptr;
  if (CreatePipe(&readEnd, &writeEnd, nullptr, 0) == 0) return {};
  Pipe pipe{Handle(readEnd), Handle(writeEnd)};
  SetHandleInformation(writeEnd, HANDLE_FLAG_INHERIT, HANDLE_FLAG_INHERIT);
  return pipe;
}

// To the end of the pipe; one byte more than the limit at most.
void ReadAll(HANDLE pipe, std::string& output) {
  std::array<char, 16384> chunk;
  DWORD count = 0;
  while (output.size() <= kOutputLimit &&
         ReadFile(pipe, chunk.data(), static_cast<DWORD>(chunk.size()), &count, nullptr) != 0)
    output.append(chunk.data(), count);
}

bool EndsBefore(HANDLE waitable, Clock::time_point deadline) {
  const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now()).count();
  const auto limit = std::clamp<decltype(left)>(left, 0, std::numeric_limits<int>::max());
  return WaitForSingleObject(waitable, static_cast<DWORD>(limit)) == WAIT_OBJECT_0;
}

}  // namespace

std::optional<ProcessResult> RunProcess(const std::vector<std::string>& arguments,
                                        std::chrono::milliseconds limit, std::string* fault) {
  std::string unwanted;
  if (fault == nullptr) fault = &unwanted;
  *fault = kNotStarted;
  if (arguments.empty()) return std::nullopt;
  const Clock::time_point deadline = Clock::now() + limit;

  Pipe pipe = MakePipe();
  if (!pipe.readEnd) return std::nullopt;
  StartedProcess started = StartProcess(arguments, pipe.writeEnd.Get(), nullptr);
  if (!started.process) {
    *fault = NotStarted(LastError());
    return std::nullopt;
  }
  pipe.writeEnd.Close();

  ProcessResult result;
  const Handle readerDone(CreateEventW(nullptr, TRUE, FALSE, nullptr));
  std::thread reader([&] {
    ReadAll(pipe.readEnd.Get(), result.output);
    SetEvent(readerDone.Get());
  });
  const bool complete =
      EndsBefore(readerDone.Get(), deadline) && result.output.size() <= kOutputLimit;
  const bool ended = complete && EndsBefore(started.process.Get(), deadline);
  DWORD status = 0;
  if (ended) GetExitCodeProcess(started.process.Get(), &status);
  TerminateJobObject(started.job.Get(), 1);  // whoever still writes lets the reader go
  reader.join();
  if (!ended) {
    *fault = result.output.size() > kOutputLimit ? kTooMuch : kTooLate;
    return std::nullopt;
  }
  fault->clear();
  result.exitStatus = static_cast<int>(status);
  return result;
}

}  // namespace os
