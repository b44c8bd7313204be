#include "platform/machine/live/linux/udev_data.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <system_error>

#include "platform/machine/live/linux/system_file.h"
#include "platform/os/paths.h"

namespace machine {
namespace {

constexpr std::size_t kFileLimit = std::size_t{256} << 10;
constexpr int kMostSlots = 64;
constexpr std::string_view kProperty = "E:";
constexpr std::string_view kEscape = "\\x";

std::string TextOf(const UdevProperties& properties, const std::string& name) {
  const auto found = properties.find(name);
  return found == properties.end() ? std::string() : found->second;
}

std::uint64_t NumberOf(const UdevProperties& properties, const std::string& name) {
  return LeadingNumber(TextOf(properties, name)).value_or(0);
}

}  // namespace

UdevProperties ParseUdevData(std::string_view text) {
  UdevProperties properties;
  while (!text.empty()) {
    std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(text.size(), line.size() + 1));
    const std::size_t equals = line.find('=');
    if (!line.starts_with(kProperty) || equals == std::string_view::npos) continue;
    const std::string_view name = line.substr(kProperty.size(), equals - kProperty.size());
    properties.emplace(name, line.substr(equals + 1));
  }
  return properties;
}

UdevProperties ReadUdevData(const std::string& device) {
  return ParseUdevData(ReadText(os::SystemPath("/run/udev/data/" + device), kFileLimit));
}

std::string DecodeUdevText(std::string_view text) {
  std::string decoded;
  while (!text.empty()) {
    char byte = text.front();
    std::size_t length = 1;
    if (text.starts_with(kEscape) && text.size() >= 4) {
      const char* const end = text.data() + 4;
      std::uint8_t number = 0;
      const auto [stop, error] = std::from_chars(text.data() + kEscape.size(), end, number, 16);
      if (error == std::errc() && stop == end) {
        byte = static_cast<char>(number);
        length = 4;
      }
    }
    decoded += byte;
    text.remove_prefix(length);
  }
  return decoded;
}

std::vector<SmbiosTable::MemoryModule> MemoryModulesOf(const UdevProperties& firmware) {
  constexpr std::uint64_t kMegabyte = std::uint64_t{1} << 20;
  std::vector<SmbiosTable::MemoryModule> modules;
  for (int slot = 0; slot < kMostSlots; ++slot) {
    const std::string prefix = "MEMORY_DEVICE_" + std::to_string(slot) + '_';
    const auto known = firmware.lower_bound(prefix);
    if (known == firmware.end() || !known->first.starts_with(prefix)) continue;
    modules.push_back(
        {TextOf(firmware, prefix + "LOCATOR"), TextOf(firmware, prefix + "MANUFACTURER"),
         TextOf(firmware, prefix + "SERIAL_NUMBER"), TextOf(firmware, prefix + "PART_NUMBER"),
         NumberOf(firmware, prefix + "SIZE") / kMegabyte,
         static_cast<std::uint32_t>(NumberOf(firmware, prefix + "SPEED_MTS"))});
  }
  return modules;
}

}  // namespace machine
