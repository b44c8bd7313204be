#pragma once

#include <chrono>
#include <functional>
#include <mutex>
#include <optional>
#include <string>

#include "platform/concurrency/message_blocks.h"

namespace cli {

/// A line at the bottom of the terminal that shows what is going on and for how long. Without a
/// terminal it shows nothing. Follows the terminal's width. Answers an interrupt, which the run
/// follows when its test is over. Any thread.
class LiveLine {
 public:
  LiveLine();
  LiveLine(const LiveLine&) = delete;
  LiveLine& operator=(const LiveLine&) = delete;
  ~LiveLine();

  /// Sets what is going on; the time starts anew. `progress` is asked at each redraw, with the line
  /// locked, for what stands behind the time.
  void Show(const std::string& text, std::function<std::string()> progress = {});

  /// Prints a finished line above.
  void PrintAbove(const std::string& line);

  void Clear();

 private:
  void Draw();
  void Erase();
  void TellOfInterrupt();

  std::mutex mutex;
  const bool onTerminal;
  std::string shown;
  std::function<std::string()> behind;
  std::chrono::steady_clock::time_point since;
  std::optional<concurrency::call<LiveLine*>> redraw;
  std::optional<concurrency::timer<LiveLine*>> timer;  // after its target
};

}  // namespace cli
