#include "platform/machine/live/hardware_names.h"

#include <charconv>
#include <optional>
#include <system_error>

#include "common/ascii.h"

namespace machine {
namespace {

constexpr std::size_t kDigits = 4;

std::string_view TakeLine(std::string_view& text) {
  const std::size_t end = text.find('\n');
  const std::string_view line = text.substr(0, end);
  text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  return line;
}

/// The name behind these digits. Nothing on a line about something else.
std::optional<std::string> NameAt(std::string_view line, std::uint32_t id) {
  if (line.size() <= kDigits || line[kDigits] != ' ') return std::nullopt;
  std::uint32_t number = 0;
  const char* const end = line.data() + kDigits;
  const auto [stop, error] = std::from_chars(line.data(), end, number, 16);
  if (error != std::errc() || stop != end || number != id) return std::nullopt;
  return common::Trimmed(line.substr(kDigits));
}

}  // namespace

HardwareName FindHardwareName(std::string_view database, std::uint32_t maker,
                              std::uint32_t product) {
  HardwareName name;
  while (!database.empty() && name.maker.empty())
    name.maker = NameAt(TakeLine(database), maker).value_or("");
  while (!database.empty()) {
    const std::string_view line = TakeLine(database);
    if (line.starts_with('#') || line.empty()) continue;
    if (!line.starts_with('\t')) break;
    if (const auto found = NameAt(line.substr(1), product)) return {name.maker, *found};
  }
  return name;
}

}  // namespace machine
