#include "platform/hardware_sdk/hardware_sdk.h"

#include <gmock/gmock.h>

#include "platform/machine/current.h"
#include "platform/machine/machine_files/machine_file.h"

namespace HardwareSdk {
namespace {

using machine::InfoShape;
using testing::ElementsAre;
using testing::ElementsAreArray;

class HardwareSdkTest : public testing::Test {
 protected:
  ~HardwareSdkTest() override { machine::SetCurrent(nullptr); }
};

// A machine that answers every call with something of that call's own: a text with the call's name,
// a number with its place in the table, and indexed calls at index 1 only.
class OwnAnswers final : public machine::Machine {
 public:
  OwnAnswers() {
    for (const machine::InfoCallRow& row : machine::kInfoCalls) {
      const std::string name = std::string(row.className) + "." + std::string(row.method);
      const std::size_t index = row.indexed ? 1 : 0;
      if (row.shape == InfoShape::Text) {
        texts.emplace_back(name.begin(), name.end());
        info.Set(row.call, texts.back(), index);
      } else if (row.shape == InfoShape::Number) {
        numbers.push_back(static_cast<std::uint64_t>(row.call) + 1);
        info.Set(row.call, numbers.back(), index);
      }
    }
  }
  const machine::Inventory& Info() override { return info; }
  std::wstring ProductName() override { return {}; }
  machine::TestAnswer Test(machine::TestCall, std::size_t, int) override { return {}; }
  bool IsSupported(machine::SupportCall) override { return false; }
  machine::RepairAnswer Repair(machine::RepairCall, std::size_t, std::uint32_t) override {
    return {};
  }

  machine::Inventory info;
  std::vector<std::wstring> texts;
  std::vector<std::uint64_t> numbers;
};

TEST_F(HardwareSdkTest, EachCallAsksForItsOwnAnswer) {
  auto answers = std::make_unique<OwnAnswers>();
  const std::vector<std::wstring> texts = answers->texts;
  const std::vector<std::uint64_t> numbers = answers->numbers;
  machine::SetCurrent(std::move(answers));

  CCpu cpu;
  CBaseboard board;
  CMemory memory;
  CDisk disk;
  CVediocard video;
  CAudioCard audio;
  CNetworkAdapter network;
  CBattery battery;
  const std::vector<std::wstring> textsGot = {
      cpu.GetCpuName(),
      cpu.GetCpuManufacturer(),
      board.GetBaseboardProduct(),
      board.GetBaseboardManufacturer(),
      board.GetBaseboardVersion(),
      board.GetBaseboardSerialNumber(),
      memory.GetPartNumberbyIndex(1),
      memory.GetLocatorbyIndex(1),
      memory.GetManufacturerbyIndex(1),
      memory.GetSerialNumberbyIndex(1),
      disk.GetCaption(1),
      disk.GetSerialNumber(1),
      disk.GetFirmwareRevision(1),
      video.GetIndependentVideoCardName(),
      video.GetIndependentVideoCardDriverVersion(),
      video.GetIndependentVideoCardDriverDate(),
      video.GetInternalVideoCardName(),
      video.GetInternalVideoCardDriverVersion(),
      video.GetInternalVideoCardDriverDate(),
      video.GetMonitorCaption(),
      video.GetDisplayResolution(),
      audio.GetAudioCardName(),
      audio.GetAudioCardNameByIndex(1),
      audio.GetAudioCardManufacturerByIndex(1),
      network.GetCaptionbyIndex(1),
      network.GetManufacturerbyIndex(1),
      network.GetMacAddressbyIndex(1),
      battery.GetBatteryName(),
      CKeyBoard().GetKeyBoardName(),
      CBluetooth().GetDeviceName(),
      CBiometric().GetDeviceName(),
      CBiometric().GetManufacturer(),
  };
  EXPECT_THAT(textsGot, ElementsAreArray(texts));
  const auto count = [](int number) { return static_cast<std::uint64_t>(number); };
  const std::vector<std::uint64_t> numbersGot = {
      cpu.GetCpuCoreNumbers(),
      cpu.GetCpuCoreThreads(),
      cpu.GetCpuExtClock(),
      cpu.GetL1CacheSize(),
      cpu.GetL2CacheSize(),
      cpu.GetL3CacheSize(),
      memory.GetTotalMemoryNums(),
      count(memory.GetMemoryNums()),
      memory.GetCapacitybyIndex(1),
      memory.GetSpeedbyIndex(1),
      count(disk.GetPhysicDiskNumbers()),
      disk.GetTotalVendorCapacity(1),
      video.GetIndependentVedioCardMemorySize(),
      video.GetInternalVedioCardMemorySize(),
      video.GetRefreshRate(),
      count(audio.GetAudioCardNumbers()),
      battery.GetBatteryDesignCapacity(),
      battery.GetBatteryFullCapacity(),
  };
  EXPECT_THAT(numbersGot, ElementsAreArray(numbers));
}

TEST_F(HardwareSdkTest, TellsWhichDisksAndAdaptersThereAre) {
  machine::SetCurrent(machine::ParseMachine(R"({"info": {
      "CDisk": {"JudgeSSd": [false, true], "GetCaption": ["A", "B", "C"]},
      "CNetworkAdapter": {"GetWireLessIndex": [2, 0]}}})",
                                            "m"));
  std::vector<std::pair<bool, bool>> judged;  // is there, is solid-state
  for (const int index : {-1, 0, 1, 2, 3}) {
    bool isSolidState = true;
    const bool isThere = CDisk().JudgeSSd(index, isSolidState);
    judged.emplace_back(isThere, isSolidState);
  }
  EXPECT_THAT(judged,
              ElementsAre(std::pair(false, false), std::pair(true, false), std::pair(true, true),
                          std::pair(true, false), std::pair(false, false)));
  EXPECT_THAT(CNetworkAdapter().GetWireLessIndex(), ElementsAre(2, 0));
}

}  // namespace
}  // namespace HardwareSdk
