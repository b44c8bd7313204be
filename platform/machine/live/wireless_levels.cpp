#include "platform/machine/live/wireless_levels.h"

#include <algorithm>
#include <charconv>
#include <system_error>

#include "common/ascii.h"

namespace machine {
namespace {

constexpr int kHeaderLines = 2;
constexpr int kNone = -256;  // also of noise that is not measured

std::string_view TakeUntil(std::string_view& text, char end) {
  const std::size_t length = text.find(end);
  const std::string_view taken = text.substr(0, length);
  text.remove_prefix(length == std::string_view::npos ? text.size() : length + 1);
  return taken;
}

/// The next word between blanks.
std::string_view TakeWord(std::string_view& line) {
  line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
  return TakeUntil(line, ' ');
}

}  // namespace

std::map<std::string, int> ParseWirelessLevels(std::string_view text) {
  std::map<std::string, int> levels;
  for (int i = 0; i < kHeaderLines; ++i) TakeUntil(text, '\n');
  while (!text.empty()) {
    std::string_view line = TakeUntil(text, '\n');
    if (line.find(':') == std::string_view::npos) continue;
    const std::string interface = common::Trimmed(TakeUntil(line, ':'));
    TakeWord(line);  // status
    TakeWord(line);  // link quality, in a unit of the driver's own
    const std::string_view word = TakeWord(line);
    int level = 0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), level);
    if (error == std::errc() && level < 0 && level > kNone) levels[interface] = level;
  }
  return levels;
}

}  // namespace machine
