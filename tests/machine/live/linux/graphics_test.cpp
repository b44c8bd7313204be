#include <gtest/gtest.h>

#include "platform/machine/live/live_machine.h"
#include "tests/machine/live/linux/acting_kernel.h"
#include "tests/support/linux/system_tree.h"

namespace {

using machine::InfoCall;
using machine::LiveMachine;
using machine::RepairCall;
using machine::TestCall;

constexpr const char* kClamshell = TEST_DATA_DIR "/trees/clamshell.tree";
constexpr const char* kConvertible = TEST_DATA_DIR "/trees/convertible.tree";

const std::string kOnBoard = "/sys/devices/pci0000:00/0000:00:02.0";
const std::string kOwnCard = "/sys/devices/pci0000:00/0000:00:01.0/0000:01:00.0";

TEST(Graphics, TellsTheCardOfTheProcessorFromOneOfItsOwn) {
  const SystemTree system(kClamshell);
  LiveMachine live;
  const machine::Inventory& info = live.Info();
  EXPECT_EQ(info.Text(InfoCall::InternalCardName), L"Sample Graphics Corp. Onboard Graphics 7");
  EXPECT_EQ(info.Text(InfoCall::InternalCardDriverVersion), L"");
  EXPECT_EQ(info.Text(InfoCall::IndependentCardName), L"Sample Graphics Corp. Big Card 90");
  EXPECT_EQ(info.Text(InfoCall::IndependentCardDriverVersion), L"55.1");
  EXPECT_EQ(info.Number(InfoCall::IndependentCardMemorySize), 4096U);
  EXPECT_EQ(live.Test(TestCall::VideoDevice, 0, -1).code, 0U);
  EXPECT_EQ(live.Test(TestCall::VideoStatus, 0, -1).code, 0U);
}

TEST(Graphics, ACardBesideTheSecurityProcessorIsOnBoard) {
  const SystemTree system(kConvertible);
  LiveMachine live;
  EXPECT_EQ(live.Info().Text(InfoCall::IndependentCardName), L"");
  EXPECT_EQ(live.Info().Text(InfoCall::InternalCardName),
            L"Sample Graphics Corp. Onboard Graphics 7");
  EXPECT_EQ(live.Info().Number(InfoCall::InternalCardMemorySize), 512U);
}

TEST(Graphics, FindsWhatIsWrongWithACard) {
  struct Case {
    const char* what;
    void (*damage)(const SystemTree& system);
    std::uint32_t device;
    std::uint32_t status;
  };
  const Case cases[] = {
      {"no driver", [](const SystemTree& system) { system.Remove(kOwnCard + "/driver"); }, 0, 2},
      {"driver that did not start it",
       [](const SystemTree& system) { system.Remove("/sys/class/drm/card1"); }, 0, 3},
      {"driver from elsewhere",
       [](const SystemTree& system) {
         system.Remove("/sys/class/drm/card1");
         system.Write("/sys/module/bgfx/taint", "PO\n");
       },
       0, 0},
      {"kept for virtual machines",
       [](const SystemTree& system) {
         system.Remove("/sys/class/drm/card1");
         system.Link(kOwnCard + "/driver", "/sys/bus/pci/drivers/vfio-pci");
       },
       0, 0},
      {"one in a plugged-in box",
       [](const SystemTree& system) {
         system.Write(kOwnCard + "/../removable", "removable\n");
         system.Remove(kOwnCard + "/driver");
       },
       0, 0},
      {"no card",
       [](const SystemTree& system) {
         system.Remove("/sys/bus/pci/devices/0000:00:02.0");
         system.Remove("/sys/bus/pci/devices/0000:01:00.0");
         system.Remove("/sys/class/drm");
       },
       1, 1},
  };
  for (const auto& [what, damage, device, status] : cases) {
    const SystemTree system(kClamshell);
    damage(system);
    LiveMachine live;
    EXPECT_EQ(live.Test(TestCall::VideoDevice, 0, -1).code, device) << what;
    EXPECT_EQ(live.Test(TestCall::VideoStatus, 0, -1).code, status) << what;
  }
}

TEST(Graphics, WhatADriverDoesNotTellIsNotCalledTested) {
  const SystemTree system(kClamshell);
  system.Remove("/sys/class/drm/card1");
  system.Write("/sys/module/bgfx/taint", "PO\n");
  LiveMachine live;
  EXPECT_NE(live.Test(TestCall::VideoStatus, 0, -1).notTested.find(L"bgfx"), std::wstring::npos);
}

TEST(Display, PrefersThePanelAndSaysWhereItsModeIsFrom) {
  const SystemTree system(kClamshell);
  LiveMachine live;
  EXPECT_EQ(live.Info().Text(InfoCall::MonitorCaption), L"SAMPLE SP140-1 (14.0\")");
  EXPECT_EQ(live.Info().Text(InfoCall::DisplayResolution), L"1920x1080 (preferred mode)");
  EXPECT_EQ(live.Info().Number(InfoCall::RefreshRate), 60U);
}

TEST(Display, GoesOnWithoutWhatCannotBeRead) {
  const std::string panel = kOnBoard + "/drm/card0/card0-eDP-1";
  const std::pair<void (*)(const SystemTree&, const std::string&), const wchar_t*> cases[] = {
      {[](const SystemTree& system, const std::string& folder) {
         system.Write(folder + "/status", "disconnected\n");
       },
       L"SAMPLE VIEW27 (27.0\")"},
      {[](const SystemTree& system, const std::string& folder) {
         system.Write(folder + "/edid", "");
       },
       L"eDP-1"},
      {[](const SystemTree& system, const std::string& folder) {
         system.Link(folder + "/edid", "/dev/zero");
       },
       L"eDP-1"},
      {[](const SystemTree& system, const std::string& folder) {
         system.Remove(folder + "/edid");
         system.Write(folder + "/edid/a_folder", "");
       },
       L"eDP-1"},
      {[](const SystemTree& system, const std::string&) { system.Remove("/sys/class/drm"); }, L""},
  };
  for (const auto& [damage, caption] : cases) {
    const SystemTree system(kClamshell);
    damage(system, panel);
    LiveMachine live;
    EXPECT_EQ(live.Info().Text(InfoCall::MonitorCaption), caption);
  }
}

TEST(GraphicsRepair, FindsTheDriverOfACardWithout) {
  const SystemTree system(kClamshell);
  system.Remove(kOwnCard + "/driver");
  system.Write(kOwnCard + "/modalias", "");
  const ActingKernel kernel([&] {
    EXPECT_EQ(system.Text("/sys/bus/pci/drivers_probe"), "0000:01:00.0");
    system.Link(kOwnCard + "/driver", "/sys/bus/pci/drivers/bgfx");
  });
  LiveMachine live;
  EXPECT_EQ(live.Repair(RepairCall::VideoCard, 0, 2).code, 0U);
}

TEST(GraphicsRepair, TakesTheDriverFromACardThatItHasNotStartedAndGivesItBack) {
  const SystemTree system(kClamshell);
  system.Remove("/sys/class/drm/card1");
  const ActingKernel kernel([&] {
    EXPECT_EQ(system.Text("/sys/bus/pci/drivers/bgfx/unbind"), "0000:01:00.0");
    EXPECT_EQ(system.Text("/sys/bus/pci/drivers/bgfx/bind"), "0000:01:00.0");
    system.Link("/sys/class/drm/card1", kOwnCard + "/drm/card1");
  });
  LiveMachine live;
  EXPECT_EQ(live.Repair(RepairCall::VideoCard, 0, 3).code, 0U);
}

TEST(GraphicsRepair, FailsInWords) {
  struct Case {
    void (*arrange)(const SystemTree& system);
    const wchar_t* reason;
  };
  const Case cases[] = {
      {[](const SystemTree& system) {
         system.Link("/sys/class/graphics/fb0", kOwnCard + "/graphics/fb0");
         system.Write(kOwnCard + "/graphics/fb0/dev", "29:0\n");
         system.Link(kOwnCard + "/graphics/fb0/device", kOwnCard);
         system.Remove(kOwnCard + "/driver");
         system.Link("/proc/77/fd/5", "/dev/fb0");
       },
       L"programs draw on the card; its driver cannot be taken from it"},
      {[](const SystemTree& system) {
         system.Remove(kOwnCard + "/driver");
         system.Remove("/sys/bus/pci/drivers_probe");
       },
       L"No such file or directory"},
      {[](const SystemTree& system) { system.Remove(kOwnCard + "/driver"); },
       L"Sample Graphics Corp. Big Card 90 has no driver"},  // nor got one in ten seconds
  };
  for (const auto& [arrange, reason] : cases) {
    const SystemTree system(kClamshell);
    system.Write(kOwnCard + "/modalias", "");
    arrange(system);
    const ActingKernel kernel([] {});
    LiveMachine live;
    const machine::RepairAnswer answer = live.Repair(RepairCall::VideoCard, 0, 2);
    EXPECT_NE(answer.code, 0U);
    EXPECT_EQ(answer.text, reason);
  }
}

TEST(GraphicsRepair, TheNextStartGivesBackWhatAKilledOneTook) {
  const SystemTree system(kClamshell);
  os::SetDataFolder(system.Root() / "data");
  const std::filesystem::path note = system.Root() / "data/unbound-device";
  system.Remove(kOwnCard + "/driver");
  WriteText(note, "pci 0000:01:00.0 bgfx\n");
  LiveMachine().Info();
  EXPECT_EQ(system.Text("/sys/bus/pci/drivers/bgfx/bind"), "0000:01:00.0");
  EXPECT_FALSE(std::filesystem::exists(note));

  // A start without the right to it leaves it to the next.
  system.Remove("/sys/bus/pci/drivers/bgfx/bind");
  WriteText(note, "pci 0000:01:00.0 bgfx\n");
  LiveMachine().Info();
  EXPECT_TRUE(std::filesystem::exists(note));

  // What is no such note, or is about a device that has its driver, does nothing.
  for (const char* text : {"pci 0000:00:02.0 bgfx\n", "pci 0000:01:00.0\n", "../../x y z\n", ""}) {
    system.Write("/sys/bus/pci/drivers/bgfx/bind", "");
    WriteText(note, text);
    LiveMachine().Info();
    EXPECT_EQ(system.Text("/sys/bus/pci/drivers/bgfx/bind"), "") << text;
    EXPECT_FALSE(std::filesystem::exists(note));
  }
}

}  // namespace
