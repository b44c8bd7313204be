#include <gmock/gmock.h>

#include "platform/machine/live/live_machine.h"
#include "tests/support/linux/system_tree.h"

namespace {

using machine::LiveMachine;
using machine::Part;
using testing::Contains;
using testing::ElementsAre;
using testing::IsSupersetOf;
using testing::Not;

const std::string kChassis = "/sys/class/dmi/id/chassis_type";

/// A machine of this form of chassis that has none of the parts that may be missing.
class BareSystem : public FakeSystem {
 public:
  explicit BareSystem(const std::string& chassis) {
    os::SetDataFolder(Root() / "data");
    Write(kChassis, chassis + "\n");
  }

  std::vector<Part> NotFitted() const { return LiveMachine().NotFitted(); }

  void AddRadio() const {
    Write("/sys/class/net/wlan0/device/uevent", "");
    Write("/sys/class/net/wlan0/wireless/status", "");
  }
};

TEST(NotFitted, AMachineOnATableNeedHaveNothingOfALaptop) {
  const BareSystem desktop("3");
  EXPECT_THAT(desktop.NotFitted(),
              ElementsAre(Part::Audio, Part::Bluetooth, Part::Network, Part::Graphics,
                          Part::Display, Part::Battery, Part::Keyboard, Part::Fingerprint));
}

TEST(NotFitted, APortableMachineMustHaveWhatMakesItOne) {
  const struct {
    const char* chassis;
    bool isPortable;
    bool needsKeyboard;
  } cases[] = {{"10", true, true},  {"9", true, true},     {"31", true, true},
               {"32", true, false}, {"30", true, false},   {"1", false, false},
               {"", false, false},  {"ten", false, false}, {"100", false, false}};
  for (const auto& [chassis, isPortable, needsKeyboard] : cases) {
    const BareSystem system(chassis);
    const std::vector<Part> notFitted = system.NotFitted();
    EXPECT_THAT(notFitted, IsSupersetOf({Part::Bluetooth, Part::Fingerprint})) << chassis;
    for (const Part part :
         {Part::Audio, Part::Network, Part::Graphics, Part::Display, Part::Battery})
      EXPECT_EQ(std::ranges::count(notFitted, part), isPortable ? 0 : 1)
          << chassis << ' ' << machine::NameOf(part);
    EXPECT_EQ(std::ranges::count(notFitted, Part::Keyboard), needsKeyboard ? 0 : 1) << chassis;
  }
}

TEST(NotFitted, AContainerIsNoLaptopWhateverItRunsOn) {
  for (const char* mark : {"/.dockerenv", "/run/.containerenv", "/run/systemd/container"}) {
    const BareSystem system("10");
    system.Write(mark, "");
    EXPECT_THAT(system.NotFitted(), Contains(Part::Battery)) << mark;
  }
}

TEST(NotFitted, WhatAnEarlierRunFoundIsMissed) {
  const BareSystem system("3");
  system.AddRadio();
  EXPECT_THAT(system.NotFitted(), Not(Contains(Part::Network)));
  std::filesystem::remove_all(os::SystemPath("/sys/class/net"));
  EXPECT_THAT(system.NotFitted(), Not(Contains(Part::Network)));

  system.Write("/sys/class/dmi/id/product_name", "Another machine\n");
  EXPECT_THAT(system.NotFitted(), Contains(Part::Network));
}

TEST(NotFitted, ASwitchOfTheMachineExpectsItsRadio) {
  const BareSystem system("3");
  system.Write("/sys/class/rfkill/rfkill0/type", "bluetooth\n");
  system.Write("/sys/devices/platform/keys/uevent", "");
  std::filesystem::create_symlink("../../bus/platform",
                                  os::SystemPath("/sys/devices/platform/keys/subsystem"));
  std::filesystem::create_symlink("../../../devices/platform/keys",
                                  os::SystemPath("/sys/class/rfkill/rfkill0/device"));
  EXPECT_THAT(system.NotFitted(), Not(Contains(Part::Bluetooth)));
  EXPECT_THAT(system.NotFitted(), Contains(Part::Network));
}

TEST(NotFitted, GoesByWhatIsThereWhereNothingCanBeKept) {
  const BareSystem system("3");
  system.AddRadio();
  system.Write("/data/fitted/a_folder", "");
  EXPECT_THAT(system.NotFitted(), Not(Contains(Part::Network)));
}

}  // namespace
