#include <algorithm>
#include <array>
#include <filesystem>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "common/ascii.h"
#include "common/text.h"
#include "platform/machine/live/category.h"
#include "platform/machine/live/linux/bus.h"
#include "platform/machine/live/linux/system_file.h"
#include "platform/machine/live/linux/usb_devices.h"
#include "platform/machine/live/usb_patterns.h"
#include "platform/os/paths.h"

namespace machine {
namespace {

namespace fs = std::filesystem;

constexpr std::uint32_t kNoReader = 1;
constexpr std::uint32_t kReaderFails = 2;

constexpr const char* kService = "net.reactivated.Fprint";
constexpr const char* kManager = "/net/reactivated/Fprint/Manager";
constexpr const char* kManagerInterface = "net.reactivated.Fprint.Manager";
constexpr const char* kDeviceInterface = "net.reactivated.Fprint.Device";
constexpr const char* kErrors = "net.reactivated.Fprint.Error.";

constexpr std::size_t kDatabaseLimit = std::size_t{1} << 20;

/// The readers that the fingerprint library of this system has drivers for. Its rules for the power
/// of devices list them all.
std::set<UsbNumbers> KnownReaders() {
  std::set<UsbNumbers> known;
  for (const char* folder : {"/usr/lib/udev/hwdb.d", "/lib/udev/hwdb.d"}) {
    const fs::path rules = os::SystemPath(folder);
    for (const std::string& name : ListNames(rules))
      if (name.find("fprint") != std::string::npos)
        known.merge(ParseUsbPatterns(ReadText(rules / name, kDatabaseLimit)));
  }
  return known;
}

bool CallsItselfReader(const UsbDevice& device) {
  return common::UpperCase(ReadLine(device.folder / "product")).find("FINGERPRINT") !=
         std::string::npos;
}

std::vector<UsbDevice> ListReaders() {
  const std::set<UsbNumbers> known = KnownReaders();
  std::vector<UsbDevice> readers = ListBuiltInUsbDevices();
  std::erase_if(readers, [&](const UsbDevice& device) {
    return !known.contains({device.maker, device.product}) && !CallsItselfReader(device);
  });
  return readers;
}

void ReadReader(Devices& devices) {
  const std::vector<UsbDevice> readers = ListReaders();
  if (readers.empty()) return;
  devices.answers.Set(InfoCall::BiometricName, common::Utf8ToWide(ProductOf(readers.front())));
  devices.answers.Set(InfoCall::BiometricManufacturer,
                      common::Utf8ToWide(MakerOf(readers.front())));
}

TestAnswer Fault(std::uint32_t code, std::wstring text) {
  return {.code = code, .text = std::move(text), .pass = false};
}

std::wstring Words(const sdbus::Error& error) {
  return common::Utf8ToWide(error.getMessage());
}

/// The readers that the fingerprint service has opened; none without the service.
std::vector<sdbus::ObjectPath> AskForReaders(sdbus::IConnection& bus) {
  std::vector<sdbus::ObjectPath> readers;
  ObjectOf(bus, kService, kManager)
      ->callMethod("GetDevices")
      .onInterface(kManagerInterface)
      .withTimeout(kServicePatience)
      .storeResultsTo(readers);
  return readers;
}

// A reader that hangs on no USB is known to the service alone.
TestAnswer CheckDevice() try {
  if (!ListReaders().empty()) return {};
  const auto bus = ConnectToSystemBus();
  if (bus != nullptr && CanBeAsked(*bus, kService) && !AskForReaders(*bus).empty()) return {};
  return Fault(kNoReader, L"there is no fingerprint reader");
} catch (const sdbus::Error& error) {
  return {.notTested = L"the fingerprint service gives no answer: " + Words(error)};
}

/// The reader is opened and let go of again.
TestAnswer OpenReader(sdbus::IConnection& bus, const std::string& path) try {
  const auto reader = ObjectOf(bus, kService, path);
  const char* const kUserThatAsks = "";
  reader->callMethod("Claim")
      .onInterface(kDeviceInterface)
      .withTimeout(kServicePatience)
      .withArguments(kUserThatAsks);
  reader->callMethod("Release").onInterface(kDeviceInterface).withTimeout(kServicePatience);
  return {.text = L"the reader was opened; no finger was asked for"};
} catch (const sdbus::Error& error) {
  if (error.getName() == std::string(kErrors) + "Internal")
    return Fault(kReaderFails, L"the reader cannot be opened: " + Words(error));
  return {.notTested = L"the reader could not be opened: " + Words(error)};
}

TestAnswer CheckFunction() try {
  const auto bus = ConnectToSystemBus();
  if (bus == nullptr || !CanBeAsked(*bus, kService))
    return {.notTested = L"no fingerprint service is installed that could open the reader"};
  const std::vector<sdbus::ObjectPath> readers = AskForReaders(*bus);
  if (!readers.empty()) return OpenReader(*bus, readers.front());
  return {.notTested = L"the fingerprint service has no driver for this reader"};
} catch (const sdbus::Error& error) {
  return {.notTested = L"the fingerprint service gives no answer: " + Words(error)};
}

constexpr auto kTests = std::to_array<LiveTest>({
    {TestCall::BiometricDevice, [](const Devices&, TestCall, int) { return CheckDevice(); },
     CallLimit::Device},
    {TestCall::BiometricFunction, [](const Devices&, TestCall, int) { return CheckFunction(); },
     CallLimit::Device},
});

}  // namespace

Category FingerprintCategory() {
  return {.read = ReadReader, .tests = kTests};
}

}  // namespace machine
