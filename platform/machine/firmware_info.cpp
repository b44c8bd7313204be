#include "platform/machine/firmware_info.h"

#include <array>

#include "common/text.h"
#include "platform/machine/system_memory.h"
#include "platform/util/text_helpers.h"

namespace machine {
namespace {

using util::SmbiosTable;

std::wstring Wide(const std::string& text) {
  return common::Utf8ToWide(DE::TrimSP(text));
}

struct BoardRow {
  InfoCall call;
  std::string SmbiosTable::Board::*field;
};

constexpr auto kBoardRows = std::to_array<BoardRow>({
    {InfoCall::BaseboardProduct, &SmbiosTable::Board::product},
    {InfoCall::BaseboardManufacturer, &SmbiosTable::Board::maker},
    {InfoCall::BaseboardVersion, &SmbiosTable::Board::version},
    {InfoCall::BaseboardSerialNumber, &SmbiosTable::Board::serialNumber},
});

}  // namespace

FirmwareInfo FirmwareOf(std::span<const std::byte> bytes) {
  const SmbiosTable table(bytes);
  return {true, DE::TrimSP(table.ProductName()), table.BaseBoard(), table.MemoryModules(),
          table.ExternalClockMhz()};
}

void FillBoard(Inventory& inventory, const FirmwareInfo& firmware) {
  for (const BoardRow& row : kBoardRows) inventory.Set(row.call, Wide(firmware.board.*row.field));
}

void FillMemory(Inventory& inventory, const FirmwareInfo& firmware) {
  std::uint64_t megabytes = 0;
  for (std::size_t slot = 0; slot < firmware.modules.size(); ++slot) {
    const SmbiosTable::MemoryModule& module = firmware.modules[slot];
    inventory.Set(InfoCall::MemoryPartNumber, Wide(module.partNumber), slot);
    inventory.Set(InfoCall::MemoryLocator, Wide(module.locator), slot);
    inventory.Set(InfoCall::MemoryManufacturer, Wide(module.maker), slot);
    inventory.Set(InfoCall::MemoryCapacity, module.megabytes, slot);
    inventory.Set(InfoCall::MemorySerialNumber, Wide(module.serialNumber), slot);
    inventory.Set(InfoCall::MemorySpeed, std::uint64_t{module.speed}, slot);
    megabytes += module.megabytes;
  }
  inventory.Set(InfoCall::MemoryCount, std::uint64_t{firmware.modules.size()});
  inventory.Set(InfoCall::MemoryTotal,
                megabytes != 0 ? megabytes : ReadSystemMemory().totalKilobytes / 1024);
}

}  // namespace machine
