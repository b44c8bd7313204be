#include "cli/live_line.h"

#include <cstdio>

#include "cli/output.h"
#include "cli/terminal_text.h"
#include "common/seconds_text.h"
#include "common/text.h"
#include "platform/os/console.h"

namespace cli {
namespace {

constexpr unsigned kRedrawMs = 200;

}  // namespace

LiveLine::LiveLine() : onTerminal(IsStyled()) {
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
  const std::string time = "  " + common::SecondsText(std::chrono::steady_clock::now() - since);
  // One row: what runs over into a second one could not be erased.
  const std::size_t columns = os::OutputColumns();
  const std::size_t taken = time.size() + 1;  // the last column stays free
  const std::wstring text = common::Utf8ToWide(shown);
  const std::wstring fitting =
      columns == 0 ? text : Shortened(text, columns > taken ? columns - taken : 0);
  std::printf("%s%s", common::WideToUtf8(fitting).c_str(), time.c_str());
  FlushOutput();
}

void LiveLine::Erase() {
  if (!onTerminal) return;
  std::fputs("\r\033[K", stdout);
  FlushOutput();
}

}  // namespace cli
