#include "platform/machine/live/smbios_table.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

namespace machine {
namespace {

using namespace std::string_view_literals;

constexpr std::size_t kHeaderSize = 4;
constexpr std::uint8_t kEndOfTable = 127;

constexpr std::uint32_t kSizeUnknown = 0xFFFF;
constexpr std::uint32_t kSizeExtended = 0x7FFF;
constexpr std::uint32_t kSizeInKilobytes = 0x8000;
constexpr std::uint32_t kExtendedMask = 0x7FFFFFFF;
constexpr std::uint32_t kSpeedExtended = 0xFFFF;

}  // namespace

/// One structure: a formatted part, then the strings it refers to by number from 1. A field that
/// the structure is too short for reads as 0 or empty.
class SmbiosStructure {
 public:
  SmbiosStructure(std::span<const std::byte> formattedPart, std::string_view stringSet)
      : formatted(formattedPart), strings(stringSet) {}

  std::uint8_t Type() const { return static_cast<std::uint8_t>(formatted[0]); }

  /// A little-endian number.
  std::uint32_t Number(std::size_t offset, std::size_t width) const {
    if (offset + width > formatted.size()) return 0;
    std::uint32_t number = 0;
    for (std::size_t i = width; i-- > 0;)
      number = number << 8 | std::to_integer<std::uint32_t>(formatted[offset + i]);
    return number;
  }

  std::string Text(std::size_t offset) const {
    std::uint32_t number = Number(offset, 1);
    if (number == 0) return {};
    std::string_view rest = strings;
    while (--number > 0 && !rest.empty()) rest.remove_prefix(rest.find('\0') + 1);
    return std::string(rest.substr(0, rest.find('\0')));
  }

 private:
  std::span<const std::byte> formatted;
  std::string_view strings;  // every string with its terminator
};

namespace {

/// Takes the next structure off the table. Nothing when no whole one is left.
std::optional<SmbiosStructure> TakeStructure(std::span<const std::byte>& table) {
  if (table.size() < kHeaderSize) return std::nullopt;
  const auto length = std::to_integer<std::size_t>(table[1]);
  if (length < kHeaderSize || length > table.size()) return std::nullopt;

  const std::string_view rest(reinterpret_cast<const char*>(table.data()) + length,
                              table.size() - length);
  // A set without strings is two zero bytes as well.
  const std::size_t end = rest.find("\0\0"sv);
  if (end == std::string_view::npos) return std::nullopt;

  const SmbiosStructure structure(table.first(length), rest.substr(0, end == 0 ? 0 : end + 1));
  table = table.subspan(length + end + 2);
  return structure;
}

std::uint64_t ModuleMegabytes(const SmbiosStructure& structure) {
  const std::uint32_t size = structure.Number(0x0C, 2);
  if (size == kSizeUnknown) return 0;
  if (size == kSizeExtended) return structure.Number(0x1C, 4) & kExtendedMask;
  if (size & kSizeInKilobytes) return (size & ~kSizeInKilobytes) / 1024;
  return size;
}

std::uint32_t ModuleSpeed(const SmbiosStructure& structure) {
  const std::uint32_t speed = structure.Number(0x15, 2);
  return speed == kSpeedExtended ? structure.Number(0x54, 4) & kExtendedMask : speed;
}

}  // namespace

SmbiosTable::SmbiosTable(std::span<const std::byte> table) {
  struct Reader {
    std::uint8_t type;
    void (SmbiosTable::*read)(const SmbiosStructure&);
  };
  static constexpr auto kReaders = std::to_array<Reader>({
      {1, &SmbiosTable::ReadSystem},
      {2, &SmbiosTable::ReadBoard},
      {4, &SmbiosTable::ReadProcessor},
      {17, &SmbiosTable::ReadMemoryModule},
  });
  while (const auto structure = TakeStructure(table)) {
    if (structure->Type() == kEndOfTable) return;
    const auto reader = std::ranges::find(kReaders, structure->Type(), &Reader::type);
    if (reader != kReaders.end()) (this->*reader->read)(*structure);
  }
}

void SmbiosTable::ReadSystem(const SmbiosStructure& structure) {
  if (hasSystem) return;
  hasSystem = true;
  productName = structure.Text(0x05);
}

// The first board is the main one; docks and risers follow.
void SmbiosTable::ReadBoard(const SmbiosStructure& structure) {
  if (hasBoard) return;
  hasBoard = true;
  board = {structure.Text(0x04), structure.Text(0x05), structure.Text(0x06), structure.Text(0x07)};
}

void SmbiosTable::ReadProcessor(const SmbiosStructure& structure) {
  if (externalClockMhz == 0) externalClockMhz = structure.Number(0x12, 2);
}

void SmbiosTable::ReadMemoryModule(const SmbiosStructure& structure) {
  modules.push_back({structure.Text(0x10), structure.Text(0x17), structure.Text(0x18),
                     structure.Text(0x1A), ModuleMegabytes(structure), ModuleSpeed(structure)});
}

}  // namespace machine
