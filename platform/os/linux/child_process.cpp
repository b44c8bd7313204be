#include "platform/os/child_process.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <stdexcept>
#include <system_error>

namespace os {
namespace {

constexpr std::chrono::seconds kPatience(3);

class Settings {
 public:
  Settings() {
    posix_spawn_file_actions_init(&actions);
    posix_spawnattr_init(&attributes);
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addclosefrom_np(&actions, STDERR_FILENO + 1);
    sigset_t none;
    sigemptyset(&none);
    posix_spawnattr_setsigmask(&attributes, &none);
    posix_spawnattr_setpgroup(&attributes, 0);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETPGROUP);
  }
  Settings(const Settings&) = delete;
  Settings& operator=(const Settings&) = delete;
  ~Settings() {
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&actions);
  }

  posix_spawn_file_actions_t actions{};
  posix_spawnattr_t attributes{};
};

}  // namespace

struct ChildProcess::System {
  pid_t process = -1;  // -1 once its end is known
};

ChildProcess::ChildProcess(const std::vector<std::string>& arguments)
    : system(std::make_unique<System>()) {
  std::vector<char*> argv;
  for (const std::string& argument : arguments) argv.push_back(const_cast<char*>(argument.c_str()));
  argv.push_back(nullptr);
  const Settings settings;
  const int error = posix_spawnp(&system->process, arguments.at(0).c_str(), &settings.actions,
                                 &settings.attributes, argv.data(), environ);
  if (error == 0) return;
  throw std::runtime_error(arguments[0] +
                           " cannot be started: " + std::generic_category().message(error));
}

ChildProcess::~ChildProcess() {
  AskToEnd();
  if (!EndsWithin(kPatience)) Kill();
}

void ChildProcess::AskToEnd() {
  if (system->process > 0) kill(system->process, SIGTERM);
}

void ChildProcess::Kill() {
  pid_t& process = system->process;
  if (process < 0) return;
  kill(process, SIGKILL);
  while (waitpid(process, nullptr, 0) < 0 && errno == EINTR) {
  }
  process = -1;
}

bool ChildProcess::EndsWithin(std::chrono::milliseconds limit) {
  pid_t& process = system->process;
  const auto deadline = std::chrono::steady_clock::now() + limit;
  while (process > 0) {
    const pid_t ended = waitpid(process, nullptr, WNOHANG);
    if (ended == process || (ended < 0 && errno != EINTR)) {
      process = -1;
      break;
    }
    if (std::chrono::steady_clock::now() >= deadline) return false;
    poll(nullptr, 0, 2);
  }
  return true;
}

}  // namespace os
