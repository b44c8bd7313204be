#include "tests/os/given_input.h"

#include <fcntl.h>
#include <unistd.h>

#include <csignal>
#include <stdexcept>

struct GivenInput::System {
  int keyboard = -1;
  int before = -1;
};

GivenInput::GivenInput() : system(std::make_unique<System>()) {
  int ends[2];
  if (pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
  system->before = dup(STDIN_FILENO);
  dup2(ends[0], STDIN_FILENO);
  close(ends[0]);
  system->keyboard = ends[1];
}

GivenInput::~GivenInput() {
  End();
  dup2(system->before, STDIN_FILENO);
  close(system->before);
}

void GivenInput::Type(const std::string& keys) {
  if (write(system->keyboard, keys.data(), keys.size()) != static_cast<ssize_t>(keys.size()))
    throw std::runtime_error("the input takes no keys");
}

void GivenInput::End() {
  if (system->keyboard >= 0) close(system->keyboard);
  system->keyboard = -1;
}

void GivenInput::Interrupt() {
  kill(getpid(), SIGINT);
}
