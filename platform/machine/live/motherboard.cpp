#include <array>

#include "common/text.h"
#include "platform/machine/live/category.h"
#include "platform/machine/live/firmware_text.h"

namespace machine {
namespace {

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

void ReadBoard(Devices& devices) {
  for (const BoardRow& row : kBoardRows) {
    const std::string text = FirmwareText(devices.firmware.board.*row.field);
    devices.answers.Set(row.call, common::Utf8ToWide(text));
  }
}

}  // namespace

Category MotherboardCategory() {
  return {.read = ReadBoard};
}

}  // namespace machine
