#pragma once

#include <memory>

namespace os {

/// While it lives, libraries that convert file names by the calling thread's locale convert them to
/// UTF-8, whatever the environment says. Create and destroy it on one thread.
class Utf8Locale {
 public:
  Utf8Locale();
  Utf8Locale(const Utf8Locale&) = delete;
  Utf8Locale& operator=(const Utf8Locale&) = delete;
  ~Utf8Locale();

 private:
  struct State;
  std::unique_ptr<State> state;
};

}  // namespace os
