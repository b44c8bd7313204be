#include "tests/support/running_program.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <stdexcept>

struct RunningProgram::System {
  bool HasEnded(int options) {
    if (!ended) ended = waitpid(id, &status, options) == id;
    return ended;
  }

  pid_t id = 0;
  int output = -1;
  bool ended = false;
  int status = 0;
};

RunningProgram::RunningProgram(const std::vector<std::string>& words,
                               const std::filesystem::path& errors)
    : system(std::make_unique<System>()) {
  std::vector<char*> vector;
  vector.reserve(words.size() + 1);
  for (const std::string& word : words) vector.push_back(const_cast<char*>(word.c_str()));
  vector.push_back(nullptr);

  int ends[2];
  if (pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
  posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, errors.c_str(), O_WRONLY | O_CREAT,
                                   0600);
  const int failed = posix_spawn(&system->id, vector[0], &actions, nullptr, vector.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  close(ends[1]);
  system->output = ends[0];
  if (failed == 0) return;
  close(ends[0]);
  throw std::runtime_error("cannot start " + words[0]);
}

RunningProgram::~RunningProgram() {
  if (!system->ended) Kill();
  system->HasEnded(0);
  close(system->output);
}

bool RunningProgram::Read(std::string& text) {
  char bytes[16384];
  const ssize_t length = read(system->output, bytes, sizeof bytes);
  if (length > 0) text.append(bytes, static_cast<std::size_t>(length));
  return length > 0;
}

void RunningProgram::Interrupt() {
  kill(system->id, SIGINT);
}

void RunningProgram::Kill() {
  kill(system->id, SIGKILL);
}

bool RunningProgram::HasEnded() {
  return system->HasEnded(WNOHANG);
}

std::optional<int> RunningProgram::Wait() {
  system->HasEnded(0);
  if (!WIFEXITED(system->status)) return std::nullopt;
  return WEXITSTATUS(system->status);
}
