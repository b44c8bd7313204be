#include "tests/cli/program.h"

#include <chrono>
#include <thread>

namespace {

std::vector<std::string> Command(const std::vector<std::string>& arguments) {
  std::vector<std::string> words{APP_DIR "/sysdiagnose"};
  words.insert(words.end(), arguments.begin(), arguments.end());
  return words;
}

}  // namespace

Program::Program(const std::vector<std::string>& arguments)
    : running(Command(arguments), folder.path / "errors") {}

bool Program::ReadUntil(const std::string& text) {
  while (true) {
    const std::size_t found = output.find(text);
    if (found != std::string::npos && output.find('\n', found) != std::string::npos) return true;
    if (!running.Read(output)) return false;
  }
}

void Program::Interrupt() {
  running.Interrupt();
}

void Program::InterruptToTheEnd() {
  while (!running.HasEnded()) {
    Interrupt();
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
}

Outcome Program::Wait() {
  while (running.Read(output)) {
  }
  const std::optional<int> exitStatus = running.Wait();
  return {exitStatus, output, ReadText(folder.path / "errors")};
}
