#include <algorithm>
#include <array>
#include <filesystem>
#include <string>
#include <vector>

#include "common/text.h"
#include "platform/machine/live/category.h"
#include "platform/machine/live/linux/bus.h"
#include "platform/machine/live/linux/device_folder.h"
#include "platform/machine/live/linux/mending.h"
#include "platform/machine/live/linux/radio_switches.h"
#include "platform/machine/live/linux/system_file.h"
#include "platform/machine/live/linux/usb_devices.h"
#include "platform/os/paths.h"

namespace machine {
namespace {

namespace fs = std::filesystem;

constexpr std::uint32_t kNoAdapter = 1;
constexpr std::uint32_t kNoDriver = 2;
constexpr std::uint32_t kOffBySoftware = 3;
constexpr std::uint32_t kOffByHand = 4;
constexpr std::uint32_t kOffInService = 5;

constexpr const char* kService = "org.bluez";
constexpr const char* kAdapterInterface = "org.bluez.Adapter1";
constexpr const char* kPowered = "Powered";

// Class, subclass and protocol of a Bluetooth radio on USB.
constexpr std::uint32_t kWirelessClass = 0xE0;
constexpr std::uint32_t kRadioSubclass = 0x01;
constexpr std::uint32_t kBluetoothProtocol = 0x01;

struct Adapter {
  std::string name;  // hci0
  fs::path folder;   // links resolved
};

/// The built-in ones. Connections lie beside them, under names with a colon.
std::vector<Adapter> ListAdapters() {
  const fs::path parent = os::SystemPath("/sys/class/bluetooth");
  std::vector<Adapter> adapters;
  for (const std::string& name : ListNames(parent)) {
    if (!name.starts_with("hci") || name.find(':') != std::string::npos) continue;
    Adapter adapter{name, DeviceFolder(parent / name)};
    if (!IsPluggedIn(adapter.folder)) adapters.push_back(std::move(adapter));
  }
  return adapters;
}

bool IsBluetoothInterface(const fs::path& folder) {
  return ReadHex(folder / "bInterfaceClass") == kWirelessClass &&
         ReadHex(folder / "bInterfaceSubClass") == kRadioSubclass &&
         ReadHex(folder / "bInterfaceProtocol") == kBluetoothProtocol;
}

std::vector<UsbDevice> ListRadios() {
  std::vector<UsbDevice> radios = ListBuiltInUsbDevices();
  std::erase_if(radios, [](const UsbDevice& device) {
    return std::ranges::none_of(InterfacesOf(device), IsBluetoothInterface);
  });
  return radios;
}

bool HasDriver(const UsbDevice& radio) {
  return std::ranges::any_of(InterfacesOf(radio), [](const fs::path& folder) {
    return IsBluetoothInterface(folder) && !LinkedName(folder, "driver").empty();
  });
}

std::wstring NameOf(const UsbDevice& device) {
  const std::string maker = MakerOf(device), product = ProductOf(device);
  return common::Utf8ToWide(product.starts_with(maker) ? product : maker + ' ' + product);
}

std::wstring NameOf(const Adapter& adapter) {
  for (const UsbDevice& radio : ListRadios())
    if (adapter.folder.string().starts_with(radio.folder.string() + '/')) return NameOf(radio);
  return common::Utf8ToWide(adapter.name);
}

void ReadAdapter(Devices& devices) {
  const std::vector<Adapter> adapters = ListAdapters();
  if (!adapters.empty()) devices.answers.Set(InfoCall::BluetoothName, NameOf(adapters.front()));
}

TestAnswer Fault(std::uint32_t code, std::wstring text) {
  return {.code = code, .text = std::move(text), .pass = false};
}

TestAnswer CheckDevice() {
  for (const UsbDevice& radio : ListRadios())
    if (!HasDriver(radio)) return Fault(kNoDriver, L"no driver runs " + NameOf(radio));
  if (!ListAdapters().empty()) return {};
  return Fault(kNoAdapter, L"there is no bluetooth adapter in this machine");
}

/// The switches of the adapters, and those of the machine as a whole.
std::vector<RadioSwitch> ListSwitches() {
  std::vector<RadioSwitch> switches = ListRadioSwitches(RadioKind::Bluetooth);
  std::erase_if(switches, [](const RadioSwitch& found) { return !found.isOfMachine; });
  for (const Adapter& adapter : ListAdapters()) {
    for (const std::string& name : ListNames(adapter.folder)) {
      const fs::path folder = adapter.folder / name;
      if (!name.starts_with("rfkill")) continue;
      switches.push_back({.device = adapter.folder,
                          .isOffBySoftware = ReadLine(folder / "soft") == "1",
                          .isOffByHand = ReadLine(folder / "hard") == "1"});
    }
  }
  return switches;
}

std::unique_ptr<sdbus::IProxy> AskAbout(sdbus::IConnection& bus, const Adapter& adapter) {
  return ObjectOf(bus, kService, "/org/bluez/" + adapter.name);
}

/// What the bluetooth service says of the adapters.
TestAnswer CheckService() try {
  const auto bus = ConnectToSystemBus();
  if (bus == nullptr || !IsRunning(*bus, kService))
    return {.text = L"only the switches were looked at: the bluetooth service does not run"};
  for (const Adapter& adapter : ListAdapters()) {
    if (!ReadProperty(*AskAbout(*bus, adapter), kAdapterInterface, kPowered).get<bool>())
      return Fault(kOffInService, L"bluetooth is turned off in the settings");
  }
  return {};
} catch (const sdbus::Error& error) {
  return {.notTested =
              L"the bluetooth service gives no answer: " + common::Utf8ToWide(error.getMessage())};
}

TestAnswer CheckState() {
  const std::vector<RadioSwitch> switches = ListSwitches();
  if (std::ranges::any_of(switches, &RadioSwitch::isOffByHand))
    return Fault(kOffByHand, L"a key or slide of the machine has turned bluetooth off");
  if (std::ranges::any_of(switches, &RadioSwitch::isOffBySoftware))
    return Fault(kOffBySoftware, L"bluetooth is switched off");
  if (ListAdapters().empty()) return CheckDevice();
  return CheckService();
}

/// Empty, or why it could not be done.
std::wstring TurnOnInService() try {
  const auto bus = ConnectToSystemBus();
  if (bus == nullptr || !IsRunning(*bus, kService)) return {};
  for (const Adapter& adapter : ListAdapters()) {
    AskAbout(*bus, adapter)
        ->callMethod("Set")
        .onInterface("org.freedesktop.DBus.Properties")
        .withTimeout(kServicePatience)
        .withArguments(std::string(kAdapterInterface), std::string(kPowered), sdbus::Variant(true));
  }
  return {};
} catch (const sdbus::Error& error) {
  return common::Utf8ToWide(error.getMessage());
}

RepairAnswer Repair(std::uint32_t) {
  const std::vector<RadioSwitch> switches = ListSwitches();
  if (std::ranges::any_of(switches, &RadioSwitch::isOffByHand))
    return FailedRepair(CheckState().text);
  if (std::ranges::any_of(switches, &RadioSwitch::isOffBySoftware)) {
    if (std::wstring reason = UnblockRadios(RadioKind::Bluetooth); !reason.empty())
      return FailedRepair(std::move(reason));
  }
  std::wstring reason;
  const RepairAnswer answer = TestAgain([&] {
    const TestAnswer device = CheckDevice();
    if (device.code != 0) return device;
    const TestAnswer state = CheckState();
    if (state.code == kOffInService) reason = TurnOnInService();
    return state;
  });
  return answer.code == 0 || reason.empty() ? answer : FailedRepair(std::move(reason));
}

constexpr auto kTests = std::to_array<LiveTest>({
    {TestCall::BluetoothDevice, [](const Devices&, TestCall, int) { return CheckDevice(); }},
    {TestCall::BluetoothState, [](const Devices&, TestCall, int) { return CheckState(); },
     CallLimit::Device},
});

// Whether there is an adapter is what the test tells.
constexpr auto kSupports = std::to_array<LiveSupport>({
    {SupportCall::Bluetooth, [](SupportCall) { return true; }},
});

constexpr auto kRepairs = std::to_array<LiveRepair>({
    {RepairCall::Bluetooth, Repair, CallLimit::Repair},
});

}  // namespace

Category BluetoothCategory() {
  return {.read = ReadAdapter, .tests = kTests, .supports = kSupports, .repairs = kRepairs};
}

}  // namespace machine
