#include "platform/machine/live/linux/input_devices.h"

#include <linux/input.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <utility>

#include "common/ascii.h"

namespace machine {
namespace {

constexpr unsigned kBitsPerWord = 64;
constexpr std::size_t kWords = KEY_MAX / kBitsPerWord + 1;

constexpr auto kBuiltInBuses =
    std::to_array<unsigned>({BUS_I8042, BUS_I2C, BUS_HOST, BUS_RMI, BUS_SPI, BUS_ISA, BUS_ADB});

// The rows of letters.
constexpr auto kLetterRows =
    std::to_array<std::pair<unsigned, unsigned>>({{KEY_Q, KEY_P}, {KEY_A, KEY_L}, {KEY_Z, KEY_M}});

std::string_view TakeLine(std::string_view& text) {
  const std::string_view line = text.substr(0, text.find('\n'));
  text.remove_prefix(std::min(line.size() + 1, text.size()));
  return line;
}

std::uint64_t HexOf(std::string_view digits) {
  std::uint64_t number = 0;
  const auto [end, error] =
      std::from_chars(digits.data(), digits.data() + digits.size(), number, 16);
  return error == std::errc() && end == digits.data() + digits.size() ? number : 0;
}

/// Words of 64 bits in hexadecimal, the highest first.
bool HasLetters(std::string_view bits) {
  std::array<std::uint64_t, kWords> words{};
  for (std::uint64_t& word : words) {
    bits = bits.substr(0, bits.find_last_not_of(' ') + 1);
    const std::size_t blank = bits.find_last_of(' ');
    const std::size_t begin = blank == std::string_view::npos ? 0 : blank + 1;
    word = HexOf(bits.substr(begin));
    bits = bits.substr(0, begin);
  }
  return std::ranges::all_of(kLetterRows, [&](const auto& row) {
    for (unsigned key = row.first; key <= row.second; ++key)
      if ((words[key / kBitsPerWord] >> key % kBitsPerWord & 1) == 0) return false;
    return true;
  });
}

struct InputDevice {
  unsigned bus = 0;
  std::string name;
  bool hasLetters = false;
};

void ReadLineOf(std::string_view line, InputDevice& device) {
  constexpr std::string_view kBus = "I: Bus=", kName = "N: Name=", kKeys = "B: KEY=";
  constexpr std::size_t kBusDigits = 4;
  if (line.starts_with(kBus))
    device.bus = static_cast<unsigned>(HexOf(line.substr(kBus.size(), kBusDigits)));
  if (line.starts_with(kKeys)) device.hasLetters = HasLetters(line.substr(kKeys.size()));
  if (!line.starts_with(kName)) return;
  std::string_view name = line.substr(kName.size());
  if (name.starts_with('"')) name.remove_prefix(1);
  if (name.ends_with('"')) name.remove_suffix(1);
  device.name = common::Trimmed(name);
}

}  // namespace

// A device is a block of lines, with an empty line behind it.
std::vector<Keyboard> FindKeyboards(std::string_view text) {
  std::vector<Keyboard> keyboards;
  InputDevice device;
  while (!text.empty()) {
    const std::string_view line = TakeLine(text);
    if (!line.empty()) ReadLineOf(line, device);
    if (!line.empty() && !text.empty()) continue;
    if (device.hasLetters && device.bus != BUS_VIRTUAL && !device.name.empty())
      keyboards.push_back({device.name, std::ranges::count(kBuiltInBuses, device.bus) > 0});
    device = {};
  }
  return keyboards;
}

}  // namespace machine
