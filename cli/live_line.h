#pragma once

#include <chrono>
#include <mutex>
#include <optional>
#include <string>

#include "platform/concurrency/message_blocks.h"

namespace cli {

/// A line at the bottom of the terminal that shows what is going on and for how long. Without a
/// terminal it shows nothing. Any thread.
class LiveLine {
 public:
  LiveLine();
  LiveLine(const LiveLine&) = delete;
  LiveLine& operator=(const LiveLine&) = delete;
  ~LiveLine();

  /// Sets what is going on; the time starts anew.
  void Show(const std::string& text);

  /// Prints a finished line above.
  void PrintAbove(const std::string& line);

  void Clear();

 private:
  void Draw();
  void Erase();

  std::mutex mutex;
  const bool onTerminal;
  std::string shown;
  std::chrono::steady_clock::time_point since;
  std::optional<concurrency::call<LiveLine*>> redraw;
  std::optional<concurrency::timer<LiveLine*>> timer;  // after its target
};

}  // namespace cli
