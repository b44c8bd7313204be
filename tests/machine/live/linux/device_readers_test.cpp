#include <gtest/gtest.h>

#include <filesystem>

#include "platform/machine/live/linux/input_devices.h"
#include "platform/machine/live/linux/sound_cards.h"
#include "platform/machine/live/live_machine.h"
#include "platform/machine/live/usb_patterns.h"
#include "tests/machine/live/linux/acting_kernel.h"
#include "tests/support/linux/system_tree.h"

namespace {

using machine::InfoCall;
using machine::LiveMachine;
using machine::RepairCall;
using machine::TestAnswer;
using machine::TestCall;

constexpr const char* kWorkbook = TEST_DATA_DIR "/trees/workbook.tree";
constexpr const char* kSlate = TEST_DATA_DIR "/trees/slate.tree";

const std::string kBattery = "/sys/class/power_supply/BAT0";
const std::string kController = "/sys/devices/pci0000:00/0000:00:1f.3";
const std::string kRadio = "/sys/devices/pci0000:00/0000:00:14.0/usb1/1-10";
const std::string kRadioSwitch = kRadio + "/1-10:1.0/bluetooth/hci0/rfkill1";

TestAnswer Ask(TestCall call) {
  return LiveMachine().Test(call, 0, -1);
}

TEST(Devices, AreListedAsTheMachinesOwn) {
  const struct {
    const char* tree;
    std::vector<std::pair<InfoCall, const wchar_t*>> texts;
    std::uint64_t sounds, designed, full;
  } cases[] = {
      {kWorkbook,
       {{InfoCall::AudioCardName, L"HDA Sample PCH"},
        {InfoCall::AudioCardManufacturer, L"Samplesound"},
        {InfoCall::BatteryName, L"SAMPLE SB57-4S1P"},
        {InfoCall::KeyboardName, L"AT Translated Set 2 keyboard"},
        {InfoCall::BluetoothName, L"Sample Radio Ltd Bluetooth Radio"},
        {InfoCall::BiometricName, L"Swipe Reader"},
        {InfoCall::BiometricManufacturer, L"Sample Sensors"}},
       1,
       57000,
       51300},
      {kSlate,
       {{InfoCall::AudioCardName, L"sof-amp"},
        {InfoCall::BatteryName, L"BAT0 + COVER"},
        {InfoCall::KeyboardName, L"Type Cover Keyboard"},
        {InfoCall::BluetoothName, L"hci0"},
        {InfoCall::BiometricName, L"Touch FingerPrint Sensor"},
        {InfoCall::BiometricManufacturer, L"Sample Touch"}},
       2,
       38000,
       30400},
  };
  for (const auto& each : cases) {
    const SystemTree system(each.tree);
    LiveMachine live;
    for (const auto& [call, text] : each.texts) EXPECT_EQ(live.Info().Text(call), text);
    EXPECT_EQ(live.Info().Number(InfoCall::AudioCardCount), each.sounds);
    EXPECT_EQ(live.Info().Number(InfoCall::BatteryDesignCapacity), each.designed);
    EXPECT_EQ(live.Info().Number(InfoCall::BatteryFullCapacity), each.full);
    for (const TestCall call : {TestCall::AudioDevice, TestCall::BatteryDevice,
                                TestCall::BluetoothDevice, TestCall::BiometricDevice})
      EXPECT_EQ(live.Test(call, 0, -1).code, 0U) << each.tree;
    EXPECT_TRUE(live.IsSupported(machine::SupportCall::Bluetooth));
  }
}

TEST(Battery, IsJudgedByWhatItTells) {
  struct Case {
    const char* file;
    const char* text;
    TestCall test;
    std::uint32_t code;
    const wchar_t* says;
  };
  const Case cases[] = {
      {"/voltage_now", "8549999", TestCall::BatteryVoltage, 2,
       L"SAMPLE SB57-4S1P has 8.54 V and was made for 11.40 V"},
      {"/voltage_now", "8550000", TestCall::BatteryVoltage, 0,
       L"SAMPLE SB57-4S1P has 8.55 V and was made for 11.40 V"},
      {"/energy_full", "34199999", TestCall::BatteryLoss, 3,
       L"SAMPLE SB57-4S1P holds 59 % of what it was made for"},
      {"/energy_full", "34200000", TestCall::BatteryLoss, 0,
       L"SAMPLE SB57-4S1P holds 60 % of what it was made for"},
      {"/energy_full", "18446744073709551615", TestCall::BatteryLoss, 0,
       L"SAMPLE SB57-4S1P holds 100 % of what it was made for"},
      {"/present", "0", TestCall::BatteryDevice, 1, L"there is no battery"},
      {"/scope", "Device", TestCall::BatteryVoltage, 1, L"there is no battery"},
  };
  for (const Case& each : cases) {
    const SystemTree system(kWorkbook);
    system.Write(kBattery + each.file, each.text);
    const TestAnswer answer = Ask(each.test);
    EXPECT_EQ(answer.code, each.code) << each.file << each.text;
    EXPECT_EQ(answer.text, each.says);
    EXPECT_EQ(answer.notTested, L"");
    EXPECT_LE(LiveMachine().Info().Number(InfoCall::BatteryFullCapacity), 4294967295U);
  }
}

TEST(Battery, WhatItDoesNotTellCouldNotBeTested) {
  for (const char* text : {"", "unknown\n", "-5\n", "0\n", "99999999999999999999999\n"}) {
    const SystemTree system(kWorkbook);
    system.Write(kBattery + "/voltage_now", text);
    system.Write(kBattery + "/energy_full", text);
    for (const TestCall call : {TestCall::BatteryVoltage, TestCall::BatteryLoss}) {
      EXPECT_EQ(Ask(call).code, 0U) << text;
      EXPECT_NE(Ask(call).notTested, L"") << text;
    }
  }
}

// One that tells little does not hide that another is worn, nor counts as whole beside a good one.
TEST(Battery, TheWorstOfSeveralCounts) {
  const SystemTree system(kSlate);
  EXPECT_TRUE(Ask(TestCall::BatteryDevice).text.ends_with(L"made for, 7.60 V"));
  EXPECT_EQ(Ask(TestCall::BatteryVoltage).notTested, L"COVER does not tell its voltage");
  system.Write("/sys/class/power_supply/BAT0/charge_full", "2000000\n");
  const TestAnswer worn = Ask(TestCall::BatteryLoss);
  EXPECT_EQ(worn.code, 3U);
  EXPECT_EQ(worn.notTested, L"");
}

TEST(Devices, FilesWithoutEndOrRightHideWhatTheyTell) {
  const SystemTree system(kWorkbook);
  for (const char* file :
       {"/proc/asound/cards", "/proc/bus/input/devices", "/sys/class/power_supply/BAT0/model_name",
        "/sys/class/power_supply/BAT0/voltage_now"})
    system.Link(file, "/dev/zero");
  system.Link(kRadio + "/product", "/no/such/file");
  std::filesystem::permissions(os::SystemPath(kBattery + "/energy_full"),
                               std::filesystem::perms::none);
  std::filesystem::remove(os::SystemPath(kBattery + "/manufacturer"));
  std::filesystem::create_directory(os::SystemPath(kBattery + "/manufacturer"));
  LiveMachine live;
  EXPECT_EQ(live.Info().Number(InfoCall::AudioCardCount), 0U);
  EXPECT_EQ(live.Info().Text(InfoCall::KeyboardName), L"");
  EXPECT_EQ(live.Info().Text(InfoCall::BatteryName), L"BAT0");
  EXPECT_EQ(live.Info().Text(InfoCall::BluetoothName), L"Sample Radio Ltd 1d20:0b26");
  EXPECT_NE(Ask(TestCall::BatteryVoltage).notTested, L"");
  EXPECT_EQ(Ask(TestCall::AudioDevice).code, 3U);
}

TEST(Sound, ADeviceThatDoesNotRunIsAFaultWhateverIsPluggedIn) {
  const SystemTree system(kWorkbook);
  system.Remove(kController + "/driver");
  TestAnswer answer = Ask(TestCall::AudioDevice);
  EXPECT_EQ(answer.code, 2U);
  EXPECT_EQ(answer.text, L"no driver runs PCI device 1d10:0a20 (0000:00:1f.3)");
  system.Remove("/sys/bus/pci/devices/0000:00:1f.3");
  system.Write("/proc/asound/cards",
               " 1 [Headset        ]: USB-Audio - Headset\n 2 [Loopback       ]: Loopback - L\n");
  EXPECT_EQ(Ask(TestCall::AudioDevice).code, 1U);
  EXPECT_EQ(LiveMachine().Repair(RepairCall::Audio, 0, 1).code, 1U);
}

TEST(Sound, ADriverIsBoundAgainAndTheCardTestedAgain) {
  const SystemTree system(kWorkbook);
  system.Remove(kController + "/driver");
  {
    const ActingKernel kernel(
        [&] { system.Link(kController + "/driver", "/sys/bus/pci/drivers/snd_sample"); });
    EXPECT_EQ(LiveMachine().Repair(RepairCall::Audio, 0, 2).code, 0U);
    EXPECT_EQ(system.Text("/sys/bus/pci/drivers_probe"), "0000:00:1f.3");
  }
  system.Remove(kController + "/driver");
  const ActingKernel idle({});
  const machine::RepairAnswer failed = LiveMachine().Repair(RepairCall::Audio, 0, 2);
  EXPECT_EQ(failed.code, 2U);
  EXPECT_TRUE(failed.text.starts_with(L"no driver runs"));
}

TEST(Bluetooth, TellsTheSwitchesFromTheDevice) {
  struct Case {
    std::string file;
    const char* text;  // null takes it away
    std::uint32_t device, state, repaired;
  };
  const Case cases[] = {
      {kRadioSwitch + "/soft", "1\n", 0, 3, 0},
      {kRadioSwitch + "/hard", "1\n", 0, 4, 1},
      {"/sys/devices/platform/sample_wmi/rfkill/rfkill0/soft", "1\n", 0, 3, 0},
      {kRadio + "/1-10:1.0/driver", nullptr, 0, 0, 0},  // the other interface has one
      {"/sys/class/bluetooth/hci0", nullptr, 1, 1, 1},  // whose dongle is no part of the machine
  };
  for (const Case& each : cases) {
    const SystemTree system(kWorkbook);
    if (each.text == nullptr)
      system.Remove(each.file);
    else
      system.Write(each.file, each.text);
    EXPECT_EQ(Ask(TestCall::BluetoothDevice).code, each.device) << each.file;
    EXPECT_EQ(Ask(TestCall::BluetoothState).code, each.state) << each.file;
    const ActingKernel kernel([&] {
      if (each.text != nullptr) system.Write(each.file, "0\n");
    });
    EXPECT_EQ(LiveMachine().Repair(RepairCall::Bluetooth, 0, each.state).code, each.repaired)
        << each.file;
  }
}

TEST(Bluetooth, ARadioWithoutADriverIsAFaultBesideADongle) {
  const SystemTree system(kWorkbook);
  for (const char* interface : {"/1-10:1.0/driver", "/1-10:1.1/driver"})
    system.Remove(kRadio + interface);
  EXPECT_EQ(Ask(TestCall::BluetoothDevice).code, 2U);
}

TEST(Bluetooth, AMissingRightIsAFailedRepairThatSaysSo) {
  const SystemTree system(kWorkbook);
  system.Write(kRadioSwitch + "/soft", "1\n");
  system.Remove("/dev/rfkill");
  const machine::RepairAnswer answer = LiveMachine().Repair(RepairCall::Bluetooth, 0, 3);
  EXPECT_NE(answer.code, 0U);
  EXPECT_NE(answer.text, L"");
}

TEST(Fingerprint, WithoutAServiceTheReaderIsThereAndCouldNotBeTested) {
  const SystemTree system(kWorkbook);
  EXPECT_EQ(Ask(TestCall::BiometricFunction).code, 0U);
  EXPECT_NE(Ask(TestCall::BiometricFunction).notTested, L"");
  system.Remove("/sys/bus/usb/devices/1-7");
  const TestAnswer gone = Ask(TestCall::BiometricDevice);
  EXPECT_EQ(gone.code, 1U);
  EXPECT_FALSE(gone.pass);
}

TEST(UsbPatterns, AreThoseOfOneDeviceEach) {
  using machine::UsbNumbers;
  EXPECT_EQ(machine::ParseUsbPatterns("# x\nusb:v27C6p5395*\n ID_X=1\nusb:v27C6p*\nusb:v27C\n"
                                      "usb:v04F3p0C4B"),
            (std::set<UsbNumbers>{{0x27C6, 0x5395}, {0x04F3, 0x0C4B}}));
  EXPECT_TRUE(machine::ParseUsbPatterns("").empty());
}

TEST(SoundStreams, AreReadWithTheirDirections) {
  const auto streams = machine::ParseStreams(
      "00-00: A Analog : A Analog : playback 1 : capture 1\n00-03: HDMI 0 : HDMI 0 : playback 1\n"
      "x\n01-06: DMIC :  : capture 1");
  ASSERT_EQ(streams.size(), 3U);
  EXPECT_EQ(streams[0].name, "A Analog");
  EXPECT_TRUE(streams[0].plays && streams[0].records);
  EXPECT_FALSE(streams[1].records);
  EXPECT_EQ(streams[2].device, 6);
  EXPECT_FALSE(streams[2].plays);
}

TEST(Keyboards, HaveAllLetters) {
  const std::string head = "I: Bus=0003 Vendor=1\nN: Name=\"K\"\nB: KEY=";
  EXPECT_EQ(machine::FindKeyboards(head + "fffffffffffffffe\n\n").size(), 1U);
  EXPECT_EQ(machine::FindKeyboards(head + "fffffffffffffffe").size(), 1U);
  EXPECT_EQ(machine::FindKeyboards(head + "fffffffffffe0000\n\n").size(), 0U);  // without Q
  EXPECT_EQ(machine::FindKeyboards(head + "ffff 0\n\n").size(), 0U);
}

}  // namespace
