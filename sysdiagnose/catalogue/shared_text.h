#pragma once

#include <mutex>
#include <string>
#include <utility>

namespace orv::sysdiagnose {

/// A text that one thread may write while others read it.
class SharedText {
 public:
  void Set(std::wstring set) {
    const std::lock_guard lock(mutex);
    text = std::move(set);
  }

  std::wstring Get() const {
    const std::lock_guard lock(mutex);
    return text;
  }

 private:
  mutable std::mutex mutex;
  std::wstring text;
};

}  // namespace orv::sysdiagnose
