#include "platform/machine/linux/firmware_info.h"

#include <array>
#include <fstream>
#include <string>
#include <vector>

#include "common/text.h"
#include "platform/machine/linux/system_file.h"
#include "platform/os/paths.h"
#include "platform/util/text_helpers.h"

namespace machine {
namespace {

constexpr std::size_t kTableLimit = std::size_t{1} << 20;

std::wstring Wide(const std::string& text) {
  return common::Utf8ToWide(DE::TrimSP(text));
}

std::wstring KernelText(const char* attribute) {
  return common::Utf8ToWide(
      ReadLine(os::SystemPath(std::string("/sys/class/dmi/id/") + attribute)));
}

struct BoardRow {
  InfoCall call;
  std::string util::SmbiosTable::Board::*field;
  const char* attribute;
};

constexpr auto kBoardRows = std::to_array<BoardRow>({
    {InfoCall::BaseboardProduct, &util::SmbiosTable::Board::product, "board_name"},
    {InfoCall::BaseboardManufacturer, &util::SmbiosTable::Board::maker, "board_vendor"},
    {InfoCall::BaseboardVersion, &util::SmbiosTable::Board::version, "board_version"},
    {InfoCall::BaseboardSerialNumber, &util::SmbiosTable::Board::serialNumber, "board_serial"},
});

}  // namespace

std::optional<util::SmbiosTable> ReadFirmwareTable() {
  const std::vector<std::byte> bytes =
      ReadBytes(os::SystemPath("/sys/firmware/dmi/tables/DMI"), kTableLimit);
  if (bytes.empty()) return std::nullopt;
  return util::SmbiosTable(bytes);
}

std::wstring ReadProductName(const std::optional<util::SmbiosTable>& table) {
  return table ? Wide(table->ProductName()) : KernelText("product_name");
}

void FillBoard(Inventory& inventory, const std::optional<util::SmbiosTable>& table) {
  for (const BoardRow& row : kBoardRows)
    inventory.Set(row.call,
                  table ? Wide(table->BaseBoard().*row.field) : KernelText(row.attribute));
}

void FillMemory(Inventory& inventory, const std::optional<util::SmbiosTable>& table) {
  std::uint64_t megabytes = 0;
  std::size_t slot = 0;
  if (table) {
    for (const util::SmbiosTable::MemoryModule& module : table->MemoryModules()) {
      inventory.Set(InfoCall::MemoryPartNumber, Wide(module.partNumber), slot);
      inventory.Set(InfoCall::MemoryLocator, Wide(module.locator), slot);
      inventory.Set(InfoCall::MemoryManufacturer, Wide(module.maker), slot);
      inventory.Set(InfoCall::MemoryCapacity, module.megabytes, slot);
      inventory.Set(InfoCall::MemorySerialNumber, Wide(module.serialNumber), slot);
      inventory.Set(InfoCall::MemorySpeed, std::uint64_t{module.speed}, slot);
      megabytes += module.megabytes;
      ++slot;
    }
  }
  inventory.Set(InfoCall::MemoryCount, std::uint64_t{slot});
  inventory.Set(InfoCall::MemoryTotal,
                megabytes != 0 ? megabytes : ReadMemoryRow("MemTotal") / 1024);
}

std::uint64_t ParseMemoryRow(std::istream& meminfo, std::string_view row) {
  const std::string label = std::string(row) + ':';
  std::string name, rest;
  std::uint64_t kilobytes = 0;
  while (meminfo >> name >> kilobytes && std::getline(meminfo, rest))
    if (name == label) return kilobytes;
  return 0;
}

std::uint64_t ReadMemoryRow(std::string_view row) {
  std::ifstream meminfo(os::SystemPath("/proc/meminfo"));
  return ParseMemoryRow(meminfo, row);
}

}  // namespace machine
