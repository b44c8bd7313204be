#include "platform/os/process.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <limits>
#include <mutex>

#include "platform/os/process_fault.h"

namespace os {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::size_t kOutputLimit = std::size_t{4} << 20;
constexpr std::chrono::milliseconds kKillPatience{500};
constexpr const char* kUnreadable = "cannot be listened to";
constexpr const char* kKilled = "was ended by a signal";

bool Fail(std::string& fault, const char* reason) {
  fault = reason;
  return false;
}

class Descriptor {
 public:
  explicit Descriptor(int opened = -1) : number(opened) {}
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() { Close(); }

  int Get() const { return number; }
  void Close() {
    if (number >= 0) close(number);
    number = -1;
  }

 private:
  int number;
};

/// Children that were killed and had not ended yet: one that hangs in the kernel ends when that
/// lets go of it, or never. Nobody waits for them; those that have ended are reaped when another
/// one is started.
class LeftBehind {
 public:
  static LeftBehind& Instance() {
    static LeftBehind& instance = *new LeftBehind;
    return instance;
  }
  void Add(pid_t child) {
    const std::lock_guard lock(mutex);
    children.push_back(child);
  }
  void Reap() {
    const std::lock_guard lock(mutex);
    std::erase_if(children, [](pid_t child) { return waitpid(child, nullptr, WNOHANG) != 0; });
  }

 private:
  std::mutex mutex;
  std::vector<pid_t> children;  // guarded by mutex
};

/// A child that leads its own process group, so that killing reaches what it started itself.
class Child {
 public:
  explicit Child(pid_t started) : pid(started) {}
  Child(const Child&) = delete;
  Child& operator=(const Child&) = delete;
  ~Child() {
    if (pid < 0) return;
    kill(-pid, SIGKILL);
    if (!HasEndedBy(Clock::now() + kKillPatience)) LeftBehind::Instance().Add(pid);
  }

  /// Nothing when it was ended by a signal or still runs at the deadline.
  std::optional<int> WaitUntil(Clock::time_point deadline) {
    if (!HasEndedBy(deadline) || !WIFEXITED(status)) return std::nullopt;
    return WEXITSTATUS(status);
  }

 private:
  bool HasEndedBy(Clock::time_point deadline) {
    for (;;) {
      const pid_t ended = waitpid(pid, &status, WNOHANG);
      if (ended == pid || (ended < 0 && errno != EINTR)) {
        pid = -1;
        if (ended < 0) status = SIGKILL;  // nobody knows how
        return true;
      }
      if (Clock::now() >= deadline) return false;
      poll(nullptr, 0, 1);
    }
  }

  int status = 0;
  pid_t pid;
};

class SpawnSettings {
 public:
  explicit SpawnSettings(int output) {
    posix_spawn_file_actions_init(&actions);
    posix_spawnattr_init(&attributes);
    // The output goes first: its descriptor may be one of those that are opened over.
    posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addclosefrom_np(&actions, STDERR_FILENO + 1);
    sigset_t none;
    sigemptyset(&none);
    sigset_t restored;
    sigemptyset(&restored);
    sigaddset(&restored, SIGPIPE);
    posix_spawnattr_setsigmask(&attributes, &none);
    posix_spawnattr_setsigdefault(&attributes, &restored);
    posix_spawnattr_setpgroup(&attributes, 0);
    posix_spawnattr_setflags(
        &attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETPGROUP);
  }
  SpawnSettings(const SpawnSettings&) = delete;
  SpawnSettings& operator=(const SpawnSettings&) = delete;
  ~SpawnSettings() {
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&actions);
  }

  posix_spawn_file_actions_t actions{};
  posix_spawnattr_t attributes{};
};

std::optional<pid_t> Start(const std::vector<std::string>& arguments, int output) {
  std::vector<char*> argv;
  argv.reserve(arguments.size() + 1);
  for (const std::string& argument : arguments) argv.push_back(const_cast<char*>(argument.c_str()));
  argv.push_back(nullptr);

  const SpawnSettings settings(output);
  pid_t pid = -1;
  errno =
      posix_spawnp(&pid, argv[0], &settings.actions, &settings.attributes, argv.data(), environ);
  if (errno != 0) return std::nullopt;
  return pid;
}

int MillisecondsUntil(Clock::time_point deadline) {
  const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now()).count();
  return static_cast<int>(std::clamp<decltype(left)>(left, 0, std::numeric_limits<int>::max()));
}

/// Reads to the end of the pipe. False at the deadline, at the size limit and on an error, which
/// `fault` then tells.
bool ReadAll(int pipe, Clock::time_point deadline, std::string& output, std::string& fault) {
  std::array<char, 16384> chunk;
  for (;;) {
    pollfd waiting{pipe, POLLIN, 0};
    const int ready = poll(&waiting, 1, MillisecondsUntil(deadline));
    if (ready == 0 || Clock::now() >= deadline) return Fail(fault, kTooLate);
    if (ready < 0 && errno == EINTR) continue;
    if (ready < 0) return Fail(fault, kUnreadable);

    const ssize_t count = read(pipe, chunk.data(), chunk.size());
    if (count == 0) return true;
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return Fail(fault, kUnreadable);
    if (output.size() + static_cast<std::size_t>(count) > kOutputLimit)
      return Fail(fault, kTooMuch);
    output.append(chunk.data(), static_cast<std::size_t>(count));
  }
}

}  // namespace

std::optional<ProcessResult> RunProcess(const std::vector<std::string>& arguments,
                                        std::chrono::milliseconds limit, std::string* fault) {
  std::string unwanted;
  if (fault == nullptr) fault = &unwanted;
  *fault = kNotStarted;
  if (arguments.empty()) return std::nullopt;
  const Clock::time_point deadline = Clock::now() + limit;
  LeftBehind::Instance().Reap();

  int ends[2];
  if (pipe2(ends, O_CLOEXEC) != 0) return std::nullopt;
  const Descriptor readEnd(ends[0]);
  Descriptor writeEnd(ends[1]);

  const std::optional<pid_t> pid = Start(arguments, writeEnd.Get());
  if (!pid) {
    *fault = NotStarted(LastError());
    return std::nullopt;
  }
  Child child(*pid);
  writeEnd.Close();

  ProcessResult result;
  if (!ReadAll(readEnd.Get(), deadline, result.output, *fault)) return std::nullopt;
  const std::optional<int> status = child.WaitUntil(deadline);
  if (!status) {
    *fault = Clock::now() >= deadline ? kTooLate : kKilled;
    return std::nullopt;
  }
  fault->clear();
  result.exitStatus = *status;
  return result;
}

}  // namespace os
