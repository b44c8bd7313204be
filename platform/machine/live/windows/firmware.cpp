#include "platform/machine/live/firmware.h"

#include <windows.h>

#include <algorithm>
#include <cstring>

#include "platform/machine/live/windows/raw_firmware_table.h"

namespace machine {
namespace {

constexpr DWORD kProvider = 0x52534D42;  // 'RSMB'
constexpr UINT kTableLimit = UINT{1} << 20;

constexpr std::size_t kHeaderSize = 8;
constexpr std::size_t kLengthOffset = 4;

}  // namespace

std::span<const std::byte> StructuresOf(std::span<const std::byte> raw) {
  if (raw.size() < kHeaderSize) return {};
  DWORD length = 0;
  std::memcpy(&length, raw.data() + kLengthOffset, sizeof length);
  const std::span<const std::byte> rest = raw.subspan(kHeaderSize);
  return rest.first(std::min<std::size_t>(length, rest.size()));
}

FirmwareInfo ReadFirmware() {
  const UINT size = GetSystemFirmwareTable(kProvider, 0, nullptr, 0);
  if (size == 0 || size > kTableLimit) return {};
  std::vector<std::byte> raw(size);
  const UINT read = GetSystemFirmwareTable(kProvider, 0, raw.data(), size);
  if (read > size) return {};
  raw.resize(read);
  const std::span<const std::byte> table = StructuresOf(raw);
  return table.empty() ? FirmwareInfo{} : FirmwareOf(table);
}

}  // namespace machine
