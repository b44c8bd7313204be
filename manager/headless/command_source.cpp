#include "manager/headless/command_source.h"

#include <chrono>
#include <condition_variable>
#include <deque>
#include <fstream>
#include <mutex>
#include <stdexcept>
#include <thread>
#include <utility>

#include "common/path_text.h"
#include "platform/os/input_line.h"

namespace manager {

struct CommandSource::State {
  // Where lines are read, on their thread alone; no script stands for standard input.
  std::optional<std::ifstream> script;

  std::mutex mutex;
  std::condition_variable changed;
  std::deque<std::string> lines;
  bool ended = false;
  bool closed = false;

  bool ReadLine(std::string& line) {
    if (!script) return os::ReadInputLine(line) == os::InputEnd::Line;
    return static_cast<bool>(std::getline(*script, line));
  }

  void ReadAll() {
    constexpr std::size_t kMostAhead = 1000;
    for (std::string line; ReadLine(line);) {
      std::unique_lock lock(mutex);
      lines.push_back(std::move(line));
      changed.notify_all();
      changed.wait(lock, [this] { return closed || lines.size() < kMostAhead; });
      if (closed) return;
    }
    const std::lock_guard lock(mutex);
    ended = true;
    changed.notify_all();
  }
};

CommandSource::CommandSource(const std::filesystem::path& script)
    : state(std::make_shared<State>()) {
  if (!script.empty()) {
    state->script.emplace(script, std::ios::binary);
    if (!*state->script || std::filesystem::is_directory(script))
      throw std::runtime_error("cannot open file " + common::PathText(script));
  }
  std::thread([reading = state] { reading->ReadAll(); }).detach();
}

CommandSource::~CommandSource() {
  const std::lock_guard lock(state->mutex);
  state->closed = true;
  state->changed.notify_all();
}

// Whoever stops it may do so inside a signal's handler, where no lock can be taken.
std::optional<std::string> CommandSource::Next(const std::atomic<bool>& stopped) {
  constexpr std::chrono::milliseconds kLookAgain(50);
  const auto hasCome = [this] { return state->ended || !state->lines.empty(); };
  std::unique_lock lock(state->mutex);
  while (!stopped && !state->changed.wait_for(lock, kLookAgain, hasCome)) {
  }
  if (stopped) return std::nullopt;
  if (state->lines.empty()) return std::nullopt;
  std::string line = std::move(state->lines.front());
  state->lines.pop_front();
  state->changed.notify_all();
  return line;
}

}  // namespace manager
