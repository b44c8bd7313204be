#pragma once

#include <chrono>
#include <optional>

namespace util {

/// How long a call waits for other programs, counted over all its waits. One thread at a time.
class Patience {
 public:
  /// From now on the whole limit may be waited out.
  void Renew();

  /// Waits a moment, a longer one each time. False, and no wait, once the limit is used up.
  bool Wait();

  /// Whether somebody has waited in vain.
  bool IsUsedUp() const { return isUsedUp; }

 private:
  std::optional<std::chrono::steady_clock::time_point> begun;  // when the first wait began
  std::chrono::milliseconds waited{0};
  std::chrono::milliseconds pause{0};
  bool isUsedUp = false;
};

}  // namespace util
