#include "platform/machine/live/linux/driver_binding.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <exception>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <string_view>
#include <system_error>

#include "common/log.h"
#include "common/text.h"
#include "platform/machine/live/linux/device_folder.h"
#include "platform/machine/live/linux/forked_call.h"
#include "platform/machine/live/linux/mending.h"
#include "platform/machine/live/linux/system_file.h"
#include "platform/os/paths.h"
#include "platform/os/process.h"
#include "platform/os/replace_file.h"

namespace machine {
namespace {

namespace fs = std::filesystem;

constexpr std::chrono::seconds kModuleLimit{10};

/// A device and the driver that it has or shall have.
struct Binding {
  std::string bus;
  std::string device;
  std::string driver;  // empty: the kernel finds one

  fs::path BusFolder() const { return os::SystemPath("/sys/bus/" + bus); }
  fs::path DeviceLink() const { return BusFolder() / "devices" / device; }
  fs::path DriverFile(const char* file) const { return BusFolder() / "drivers" / driver / file; }
};

/// 0 or an error number. System calls only: runs in a child.
int WriteTo(const char* file, std::string_view text) {
  const int opened = open(file, O_WRONLY | O_CLOEXEC | O_NOCTTY);
  if (opened < 0) return errno;
  const ssize_t written = write(opened, text.data(), text.size());
  const int error = written < 0 ? errno : 0;
  close(opened);
  return error;
}

// Where a taken driver is written down until it is back.
fs::path NoteFile() {
  return os::DataFolder() / "unbound-device";
}

/// As it was written down; nothing when nothing was, or no such thing.
std::optional<Binding> ReadNote() {
  std::istringstream note(ReadLine(NoteFile()));
  Binding binding;
  note >> binding.bus >> binding.device >> binding.driver;
  const bool isName =
      (binding.bus + binding.device + binding.driver).find('/') == std::string::npos;
  if (!isName || binding.driver.empty()) return std::nullopt;
  return binding;
}

void RemoveNote() {
  std::error_code error;
  fs::remove(NoteFile(), error);
}

std::wstring Outcome(const std::optional<int>& error) {
  if (!error) return L"the kernel has not come to an end with it";
  return *error == 0 ? std::wstring() : ReasonOf(*error);
}

std::wstring GiveBack(const Binding& binding) {
  const std::string bind = binding.DriverFile("bind");
  return Outcome(RunForked([&] { return WriteTo(bind.c_str(), binding.device); },
                           AfterLimit::LetFinish, kRepairLimit));
}

std::wstring TakeAndGiveBack(const Binding& binding) {
  const std::string unbind = binding.DriverFile("unbind");
  const std::string bind = binding.DriverFile("bind");
  if (access(unbind.c_str(), W_OK) != 0) return ReasonOf(errno);
  try {
    os::ReplaceFile(NoteFile(), binding.bus + ' ' + binding.device + ' ' + binding.driver + '\n');
  } catch (const std::exception& fault) {
    return common::Utf8ToWide(fault.what());  // what cannot be written down is not taken
  }
  const std::optional<int> error = RunForked(
      [&] {
        const int taken = WriteTo(unbind.c_str(), binding.device);
        return taken != 0 ? taken : WriteTo(bind.c_str(), binding.device);
      },
      AfterLimit::LetFinish, kRepairLimit);
  if (error) RemoveNote();
  return Outcome(error);
}

/// The kernel asks each driver of the bus. The module of the right one may have to be loaded first.
std::wstring FindDriver(const Binding& binding) {
  const std::string probe = binding.BusFolder() / "drivers_probe";
  if (access(probe.c_str(), W_OK) != 0) return ReasonOf(errno);
  const std::string alias = ReadLine(binding.DeviceLink() / "modalias");
  if (!alias.empty()) os::RunProcess({"modprobe", "-q", "--", alias}, kModuleLimit);
  return Outcome(RunForked([&] { return WriteTo(probe.c_str(), binding.device); },
                           AfterLimit::LetFinish, kRepairLimit));
}

void FinishBinding(Devices&) {
  try {
    if (!Exists(NoteFile())) return;
    const std::optional<Binding> binding = ReadNote();
    const bool isMissed =
        binding && Exists(binding->DeviceLink()) && !Exists(binding->DeviceLink() / "driver");
    const std::wstring fault = isMissed ? GiveBack(*binding) : std::wstring();
    if (!fault.empty()) throw std::runtime_error(common::WideToUtf8(fault));
    RemoveNote();
  } catch (const std::exception&) {
    COMMON_LOG_WARN(
        log4cxx::Logger::getLogger("orv.machine"),
        "an unfinished repair cannot be finished: " + common::DescribeCurrentException());
  }
}

}  // namespace

std::wstring BindAgain(const fs::path& device) {
  const Binding binding{LinkedName(device, "subsystem"), device.filename().string(),
                        LinkedName(device, "driver")};
  if (binding.bus.empty()) return L"the device is on no bus";
  return binding.driver.empty() ? FindDriver(binding) : TakeAndGiveBack(binding);
}

Category UnfinishedBinding() {
  return {.read = FinishBinding};
}

}  // namespace machine
