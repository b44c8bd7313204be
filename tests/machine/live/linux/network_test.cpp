#include <gtest/gtest.h>

#include "platform/machine/live/live_machine.h"
#include "platform/machine/live/wireless_levels.h"
#include "tests/machine/live/linux/acting_kernel.h"
#include "tests/support/linux/system_tree.h"

namespace {

using machine::InfoCall;
using machine::LiveMachine;
using machine::RepairCall;
using machine::TestCall;

constexpr const char* kClamshell = TEST_DATA_DIR "/trees/clamshell.tree";
constexpr const char* kConvertible = TEST_DATA_DIR "/trees/convertible.tree";

const std::string kRadio = "/sys/devices/pci0000:00/0000:00:1c.0/0000:02:00.0";
const std::string kWire = "/sys/devices/pci0000:00/0000:00:1c.1/0000:03:00.0";

/// The driver of the radio gone, and with it what the driver made.
void TakeRadioDriver(const SystemTree& system) {
  system.Remove(kRadio + "/driver");
  system.Remove("/sys/class/net/wlan0");
  system.Remove("/sys/class/net/wlan0mon");
  system.Remove("/sys/class/rfkill/rfkill1");
}

TEST(Network, ListsBuiltInAdaptersEachRadioOnce) {
  const SystemTree system(kClamshell);
  LiveMachine live;
  const machine::Inventory& info = live.Info();
  EXPECT_EQ(info.Size(InfoCall::AdapterCaption), 2U);
  ASSERT_EQ(info.List(InfoCall::WirelessIndices).size(), 1U);
  const int wireless = info.List(InfoCall::WirelessIndices)[0];
  EXPECT_EQ(info.Text(InfoCall::AdapterCaption, wireless), L"Radio AX 2x2");
  EXPECT_EQ(info.Text(InfoCall::AdapterManufacturer, wireless), L"Sample Radio Ltd");
  EXPECT_EQ(info.Text(InfoCall::AdapterMacAddress, wireless), L"02:00:5e:10:00:01");
  for (const TestCall call : {TestCall::WifiDevice, TestCall::WifiNetworkCard, TestCall::WifiSwitch,
                              TestCall::WifiSignal}) {
    const machine::TestAnswer answer = live.Test(call, 0, -1);
    EXPECT_EQ(answer.code, 0U);
    EXPECT_EQ(answer.notTested, L"");
  }
}

TEST(Network, ADongleIsNoneOfTheMachines) {
  const SystemTree system(kConvertible);
  LiveMachine live;
  ASSERT_EQ(live.Info().List(InfoCall::WirelessIndices).size(), 1U);
  EXPECT_EQ(live.Info().Text(InfoCall::AdapterCaption), L"ssdio (wlan0)");
  system.Remove("/sys/class/net/wlan0");
  EXPECT_EQ(live.Test(TestCall::WifiDevice, 0, -1).code, 1U);

  const std::string dongle = "/sys/devices/pci0000:00/0000:00:10.0/usb1/1-1";
  for (const auto& [removable, code] : {std::pair{"fixed", 0U}, {"unknown", 1U}, {"", 1U}}) {
    system.Write(dongle + "/removable", removable);
    EXPECT_EQ(live.Test(TestCall::WifiDevice, 0, -1).code, code) << removable;
  }
}

TEST(Network, FindsWhatIsWrong) {
  struct Case {
    const char* what;
    void (*damage)(const SystemTree& system);
    std::array<std::uint32_t, 4> codes;  // device, adapters, switch, signal
    bool isSignalTested;
  };
  const Case cases[] = {
      {"no driver", TakeRadioDriver, {2, 2, 0, 0}, false},
      {"a driver that did not start it",
       [](const SystemTree& system) {
         system.Remove("/sys/class/net/wlan0");
         system.Remove("/sys/class/net/wlan0mon");
       },
       {0, 3, 0, 0},
       false},
      {"wired without a driver",
       [](const SystemTree& system) {
         system.Remove(kWire + "/driver");
         system.Remove("/sys/class/net/enp3s0");
       },
       {0, 2, 0, 0},
       true},
      {"off the bus",
       [](const SystemTree& system) {
         TakeRadioDriver(system);
         system.Remove("/sys/bus/pci/devices/0000:02:00.0");
       },
       {1, 0, 0, 0},
       false},
      {"blocked by software",
       [](const SystemTree& system) { system.Write("/sys/class/rfkill/rfkill1/soft", "1\n"); },
       {0, 0, 4, 0},
       true},
      {"the machine's own switch",
       [](const SystemTree& system) {
         system.Write("/sys/class/rfkill/rfkill0/soft", "1\n");
         system.Write("/sys/class/rfkill/rfkill0/hard", "1\n");
       },
       {0, 0, 5, 0},
       true},
      {"weak",
       [](const SystemTree& system) {
         system.Write("/proc/net/wireless", "a\nb\n wlan0: 0000   22.  -88.  -256  0 0 0 0 0 0\n");
       },
       {0, 0, 0, 6},
       true},
      {"an unreadable table",
       [](const SystemTree& system) { system.Link("/proc/net/wireless", "/dev/zero"); },
       {0, 0, 0, 0},
       false},
      {"nonsense",
       [](const SystemTree& system) {
         system.Write("/sys/class/rfkill/rfkill1/soft", "many\n");
         system.Write("/sys/class/net/wlan0/ifindex", "-\n");
         system.Write(kWire + "/class", "network\n");
       },
       {0, 0, 0, 0},
       true},
  };
  for (const auto& [what, damage, codes, isSignalTested] : cases) {
    const SystemTree system(kClamshell);
    damage(system);
    LiveMachine live;
    EXPECT_EQ(live.Test(TestCall::WifiDevice, 0, -1).code, codes[0]) << what;
    EXPECT_EQ(live.Test(TestCall::WifiNetworkCard, 0, -1).code, codes[1]) << what;
    EXPECT_EQ(live.Test(TestCall::WifiSwitch, 0, -1).code, codes[2]) << what;
    const machine::TestAnswer signal = live.Test(TestCall::WifiSignal, 0, -1);
    EXPECT_EQ(signal.code, codes[3]) << what;
    EXPECT_EQ(signal.notTested.empty(), isSignalTested) << what;
  }
}

TEST(Network, TakesLevelsInDecibelsOnly) {
  const auto levels = machine::ParseWirelessLevels(
      "head\nhead\n"
      " wlan0: 0000   54.  -56.  -256   0\nwlp2s0: 0000 9. -81. 0\n"
      " wlan1: 0000    0.  -256.  -256  0\n wlan2: 0000 50 60 0\n"
      " wlan3: 0000\n wlan4\n wlan5: a b c d\n: 0 0 -5\n");
  EXPECT_EQ(levels, (std::map<std::string, int>{{"", -5}, {"wlan0", -56}, {"wlp2s0", -81}}));
  EXPECT_TRUE(machine::ParseWirelessLevels("").empty());
}

TEST(NetworkRepair, TurnsAllRadiosOn) {
  const SystemTree system(kConvertible);
  const ActingKernel kernel([&] {
    // Index 0, kind 1 (wireless), operation 3 (all of the kind), not blocked.
    EXPECT_EQ(system.Text("/dev/rfkill"), std::string("\0\0\0\0\1\3\0\0", 8));
    system.Write("/sys/class/rfkill/rfkill0/soft", "0\n");
  });
  system.Write("/dev/rfkill", "");
  LiveMachine live;
  EXPECT_EQ(live.Test(TestCall::WifiSwitch, 0, -1).code, 4U);
  EXPECT_EQ(live.Repair(RepairCall::WifiProblem, 0, 4).code, 0U);
}

TEST(NetworkRepair, GivesTheRadioItsDriverBack) {
  const SystemTree system(kClamshell);
  TakeRadioDriver(system);
  system.Write(kRadio + "/modalias", "");
  const ActingKernel kernel([&] {
    EXPECT_EQ(system.Text("/sys/bus/pci/drivers_probe"), "0000:02:00.0");
    system.Link(kRadio + "/driver", "/sys/bus/pci/drivers/swifi");
  });
  LiveMachine live;
  EXPECT_EQ(live.Repair(RepairCall::WifiDriver, 0, 2).code, 0U);
}

TEST(NetworkRepair, FailsInWords) {
  struct Case {
    RepairCall call;
    std::uint32_t code;
    void (*arrange)(const SystemTree& system);
    const wchar_t* reason;
  };
  const Case cases[] = {
      {RepairCall::WifiProblem, 4, [](const SystemTree& system) { system.Remove("/dev/rfkill"); },
       L"No such file or directory"},
      {RepairCall::WifiProblem, 4,
       [](const SystemTree& system) { system.Write("/sys/class/rfkill/rfkill1/soft", "1"); },
       L"wireless is switched off by software"},  // and stays so
      {RepairCall::WifiProblem, 5, [](const SystemTree&) {},
       L"the key or slide of the machine must be used to switch wireless on"},
      {RepairCall::WifiProblem, 6, [](const SystemTree&) {},
       L"a weak signal gets stronger only closer to the access point"},
      {RepairCall::WifiProblem, 77, [](const SystemTree&) {},
       L"there is no repair for this problem"},
      {RepairCall::WifiDriver, 1,
       [](const SystemTree& system) {
         TakeRadioDriver(system);
         system.Remove("/sys/bus/pci/devices/0000:02:00.0");
       },
       L"there is no wireless adapter"},
  };
  for (const auto& [call, code, arrange, reason] : cases) {
    const SystemTree system(kClamshell);
    const ActingKernel kernel([] {});
    arrange(system);
    LiveMachine live;
    const machine::RepairAnswer answer = live.Repair(call, 0, code);
    EXPECT_NE(answer.code, 0U);
    EXPECT_EQ(answer.text, reason);
  }
}

}  // namespace
