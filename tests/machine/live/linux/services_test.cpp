#include <gtest/gtest.h>
#include <sdbus-c++/sdbus-c++.h>

#include <atomic>
#include <memory>
#include <string>
#include <vector>

#include "platform/machine/live/live_machine.h"
#include "tests/machine/live/linux/acting_kernel.h"
#include "tests/machine/live/linux/message_bus.h"
#include "tests/support/linux/system_tree.h"

namespace {

using machine::LiveMachine;
using machine::RepairCall;
using machine::TestAnswer;
using machine::TestCall;

constexpr const char* kWorkbook = TEST_DATA_DIR "/trees/workbook.tree";
constexpr const char* kReader = "/net/reactivated/Fprint/Device/0";

/// The message bus of a tree's system.
class SystemBus : public MessageBus {
 public:
  explicit SystemBus(const SystemTree& system)
      : MessageBus(system.Root() / "run/dbus/system_bus_socket") {}
};

/// A service with one object.
class Service {
 public:
  Service(const SystemBus& bus, const std::string& name, const std::string& path)
      : connection(bus.Connect(name)), object(sdbus::createObject(*connection, path)) {}

  sdbus::IObject& Object() { return *object; }
  sdbus::IConnection& Connection() { return *connection; }
  void Begin() {
    object->finishRegistration();
    connection->enterEventLoopAsync();
  }

 private:
  std::unique_ptr<sdbus::IConnection> connection;
  std::unique_ptr<sdbus::IObject> object;
};

TestAnswer Ask(TestCall call) {
  return LiveMachine().Test(call, 0, -1);
}

TEST(BluetoothService, SaysWhetherTheAdapterIsOnAndTurnsItOn) {
  const SystemTree system(kWorkbook);
  const SystemBus bus(system);
  std::atomic<bool> isOn = false, isStuck = true;
  Service service(bus, "org.bluez", "/org/bluez/hci0");
  service.Object()
      .registerProperty("Powered")
      .onInterface("org.bluez.Adapter1")
      .withGetter([&] { return isOn.load(); })
      .withSetter([&](const bool& on) {
        if (isStuck) throw sdbus::Error("org.bluez.Error.Failed", "not today");
        isOn = on;
      });
  service.Begin();
  EXPECT_EQ(Ask(TestCall::BluetoothState).code, 5U);
  {
    const ActingKernel nothingHappens({});
    const machine::RepairAnswer failed = LiveMachine().Repair(RepairCall::Bluetooth, 0, 5);
    EXPECT_NE(failed.code, 0U);
    EXPECT_EQ(failed.text, L"not today");
  }
  isStuck = false;
  EXPECT_EQ(LiveMachine().Repair(RepairCall::Bluetooth, 0, 5).code, 0U);
  EXPECT_TRUE(isOn);
  EXPECT_EQ(Ask(TestCall::BluetoothState).text, L"");
}

TEST(BluetoothService, OneThatDoesNotKnowTheAdapterTellsNothing) {
  const SystemTree system(kWorkbook);
  const SystemBus bus(system);
  Service service(bus, "org.bluez", "/org/bluez/hci7");
  service.Begin();
  const TestAnswer answer = Ask(TestCall::BluetoothState);
  EXPECT_EQ(answer.code, 0U);
  EXPECT_NE(answer.notTested, L"");
}

TEST(FingerprintService, OpensTheReaderAndSaysWhyItCannot) {
  const struct {
    const char* error;  // of opening; null where it opens
    std::uint32_t code;
    const wchar_t* text;
    const wchar_t* notTested;
  } cases[] = {
      {nullptr, 0, L"the reader was opened; no finger was asked for", L""},
      {"net.reactivated.Fprint.Error.Internal", 2, L"the reader cannot be opened: why", L""},
      {"net.reactivated.Fprint.Error.AlreadyInUse", 0, L"", L"the reader could not be opened: why"},
      {"net.reactivated.Fprint.Error.PermissionDenied", 0, L"",
       L"the reader could not be opened: why"},
  };
  const SystemTree system(kWorkbook);
  const SystemBus bus(system);
  std::atomic<const char*> error = nullptr;
  std::atomic<int> opened = 0;
  Service service(bus, "net.reactivated.Fprint", "/net/reactivated/Fprint/Manager");
  service.Object()
      .registerMethod("GetDevices")
      .onInterface("net.reactivated.Fprint.Manager")
      .implementedAs([] { return std::vector<sdbus::ObjectPath>{sdbus::ObjectPath(kReader)}; });
  const auto reader = sdbus::createObject(service.Connection(), kReader);
  constexpr const char* kDevice = "net.reactivated.Fprint.Device";
  reader->registerMethod("Claim").onInterface(kDevice).implementedAs([&](const std::string&) {
    if (const char* const name = error) throw sdbus::Error(name, "why");
    ++opened;
  });
  reader->registerMethod("Release").onInterface(kDevice).implementedAs([&] { --opened; });
  reader->finishRegistration();
  service.Begin();
  for (const auto& each : cases) {
    error = each.error;
    const TestAnswer answer = Ask(TestCall::BiometricFunction);
    EXPECT_EQ(answer.code, each.code);
    EXPECT_EQ(answer.pass, each.code == 0);
    EXPECT_EQ(answer.text, each.text);
    EXPECT_EQ(answer.notTested, each.notTested);
    EXPECT_EQ(opened, 0);
  }
  // One that hangs on no USB is known to the service alone.
  system.Remove("/sys/bus/usb/devices/1-7");
  EXPECT_EQ(Ask(TestCall::BiometricDevice).code, 0U);
}

}  // namespace
