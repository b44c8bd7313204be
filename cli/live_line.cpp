#include "cli/live_line.h"

#include <cstdio>

#include "common/seconds_text.h"
#include "platform/os/console.h"

namespace cli {
namespace {

constexpr unsigned kRedrawMs = 200;

}  // namespace

LiveLine::LiveLine() : onTerminal(os::OutputIsTerminal()) {
  if (!onTerminal) return;
  redraw.emplace([](LiveLine* line) {
    const std::lock_guard lock(line->mutex);
    line->Draw();
  });
  timer.emplace(kRedrawMs, this, &*redraw, true);
  timer->start();
}

LiveLine::~LiveLine() {
  timer.reset();
  redraw.reset();
  Clear();
}

void LiveLine::Show(const std::string& text) {
  const std::lock_guard lock(mutex);
  shown = text;
  since = std::chrono::steady_clock::now();
  Draw();
}

void LiveLine::PrintAbove(const std::string& line) {
  const std::lock_guard lock(mutex);
  Erase();
  std::puts(line.c_str());
  Draw();
}

void LiveLine::Clear() {
  const std::lock_guard lock(mutex);
  Erase();
  shown.clear();
}

void LiveLine::Draw() {
  if (!onTerminal || shown.empty()) return;
  Erase();
  const std::string elapsed = common::SecondsText(std::chrono::steady_clock::now() - since);
  std::printf("%s  %s", shown.c_str(), elapsed.c_str());
  std::fflush(stdout);
}

void LiveLine::Erase() {
  if (!onTerminal) return;
  std::fputs("\r\033[K", stdout);
  std::fflush(stdout);
}

}  // namespace cli
