#pragma once

#include <cstdint>
#include <string>
#include <tuple>

namespace protocol {

/// Whose log a file is. Published numbers.
enum class LogModule : std::int32_t { Programs = 1, Events = 2, Application = 4 };

/// One log file that is offered for upload. Narrow text is UTF-8.
struct SYSTEM_DETECT_LOG_ITEM {
  std::int32_t module = 0;
  std::string file;

  static auto Fields(auto& item) { return std::tie(item.module, item.file); }

  bool operator==(const SYSTEM_DETECT_LOG_ITEM&) const = default;
};

}  // namespace protocol
