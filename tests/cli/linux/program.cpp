#include "tests/cli/program.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <stdexcept>

#include "tests/support/temporary_folder.h"

struct Program::Process {
  ~Process() {
    if (!ended) {
      kill(id, SIGKILL);
      waitpid(id, nullptr, 0);
    }
    if (output >= 0) close(output);
  }

  bool HasEnded(int options) {
    if (!ended) ended = waitpid(id, &status, options) == id;
    return ended;
  }

  // False at the end of the output.
  bool Read(std::string& text) const {
    char bytes[16384];
    const ssize_t length = read(output, bytes, sizeof bytes);
    if (length > 0) text.append(bytes, static_cast<std::size_t>(length));
    return length > 0;
  }

  pid_t id = 0;
  int output = -1;
  bool ended = true;
  int status = 0;
  TemporaryFolder folder;
};

Program::Program(const std::vector<std::string>& arguments) : process(std::make_unique<Process>()) {
  std::vector<std::string> words{APP_DIR "/sysdiagnose"};
  words.insert(words.end(), arguments.begin(), arguments.end());
  std::vector<char*> vector;
  vector.reserve(words.size() + 1);
  for (std::string& word : words) vector.push_back(word.data());
  vector.push_back(nullptr);

  int ends[2];
  if (pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
  process->output = ends[0];
  const std::string errors = process->folder.path / "errors";
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
  posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, errors.c_str(), O_WRONLY | O_CREAT,
                                   0600);
  const int failed =
      posix_spawn(&process->id, vector[0], &actions, nullptr, vector.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  close(ends[1]);
  if (failed != 0) throw std::runtime_error("cannot start " + words[0]);
  process->ended = false;
}

Program::~Program() = default;

bool Program::ReadUntil(const std::string& text) {
  while (true) {
    const std::size_t found = output.find(text);
    if (found != std::string::npos && output.find('\n', found) != std::string::npos) return true;
    if (!process->Read(output)) return false;
  }
}

void Program::Interrupt() {
  kill(process->id, SIGINT);
}

void Program::InterruptToTheEnd() {
  while (!process->HasEnded(WNOHANG)) {
    Interrupt();
    poll(nullptr, 0, 1);
  }
}

Outcome Program::Wait() {
  while (process->Read(output)) {
  }
  process->HasEnded(0);
  const std::string errors = ReadText(process->folder.path / "errors");
  if (!WIFEXITED(process->status)) return {std::nullopt, output, errors};
  return {WEXITSTATUS(process->status), output, errors};
}
