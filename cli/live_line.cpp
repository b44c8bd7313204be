#include "cli/live_line.h"

#include <atomic>
#include <cstdio>
#include <utility>

#include "cli/output.h"
#include "cli/terminal_text.h"
#include "cli/texts.h"
#include "common/seconds_text.h"
#include "common/text.h"
#include "platform/os/console.h"
#include "startup/interruptible.h"

namespace cli {
namespace {

constexpr unsigned kRedrawMs = 100;
constexpr std::size_t kColumnsForProgress = 60;  // behind what goes on

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

void LiveLine::Show(const std::string& text, std::function<std::string()> progress) {
  const std::lock_guard lock(mutex);
  shown = text;
  behind = std::move(progress);
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
  TellOfInterrupt();
  const std::size_t columns = os::OutputColumns();
  const bool hasRoom = columns == 0 || columns >= kColumnsForProgress;
  const std::string more = behind && hasRoom ? behind() : std::string();
  const std::string time = (more.empty() ? "  " : "  " + more + "  ") +
                           common::SecondsText(std::chrono::steady_clock::now() - since);
  // One row, and the cursor at its beginning: a terminal that becomes narrower folds the row below
  // the cursor, where the next drawing erases it.
  const std::size_t taken = Columns(common::Utf8ToWide(time)) + 1;  // the last column stays free
  const std::wstring text = common::Utf8ToWide(shown);
  const std::wstring fitting =
      columns == 0 ? text : Shortened(text, columns > taken ? columns - taken : 0);
  std::printf("%s%s\r", common::WideToUtf8(fitting).c_str(), time.c_str());
  FlushOutput();
}

void LiveLine::TellOfInterrupt() {
  static std::atomic<bool> hasTold = false;  // once, whichever line shows
  if (!startup::Interruptible::HasCome() || hasTold.exchange(true)) return;
  std::puts(Coloured(Colour::Yellow, Indented(Text(L"STOPPING"), 0)).c_str());
}

void LiveLine::Erase() {
  if (!onTerminal) return;
  std::fputs("\r\033[J", stdout);
  FlushOutput();
}

}  // namespace cli
