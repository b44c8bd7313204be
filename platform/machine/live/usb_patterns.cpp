#include "platform/machine/live/usb_patterns.h"

#include <charconv>
#include <optional>

namespace machine {
namespace {

constexpr std::string_view kBegin = "usb:v";
constexpr std::size_t kDigits = 4;

std::optional<std::uint32_t> TakeHex(std::string_view& text) {
  const std::string_view digits = text.substr(0, kDigits);
  std::uint32_t number = 0;
  const auto [end, error] =
      std::from_chars(digits.data(), digits.data() + digits.size(), number, 16);
  if (error != std::errc() || end != digits.data() + kDigits) return std::nullopt;
  text.remove_prefix(kDigits);
  return number;
}

std::optional<UsbNumbers> ParseLine(std::string_view line) {
  if (!line.starts_with(kBegin)) return std::nullopt;
  line.remove_prefix(kBegin.size());
  const auto maker = TakeHex(line);
  if (!maker || !line.starts_with('p')) return std::nullopt;
  line.remove_prefix(1);
  const auto product = TakeHex(line);
  if (!product) return std::nullopt;
  return UsbNumbers{*maker, *product};
}

}  // namespace

std::set<UsbNumbers> ParseUsbPatterns(std::string_view database) {
  std::set<UsbNumbers> devices;
  while (!database.empty()) {
    const std::string_view line = database.substr(0, database.find('\n'));
    if (const auto device = ParseLine(line)) devices.insert(*device);
    database.remove_prefix(line.size() < database.size() ? line.size() + 1 : line.size());
  }
  return devices;
}

}  // namespace machine
