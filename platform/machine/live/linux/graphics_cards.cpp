#include "platform/machine/live/linux/graphics_cards.h"

#include <algorithm>
#include <array>
#include <set>
#include <string_view>
#include <system_error>

#include "common/ascii.h"
#include "platform/machine/live/linux/device_folder.h"
#include "platform/machine/live/linux/pci_device.h"
#include "platform/machine/live/linux/system_file.h"
#include "platform/os/paths.h"

namespace machine {
namespace {

namespace fs = std::filesystem;

constexpr std::uint32_t kDisplayClass = 0x03;
constexpr std::uint32_t kEncryptionClass = 0x10;

// Draw on what the firmware left, whatever card is behind it.
constexpr auto kFirmwareDrivers =
    std::to_array<std::string_view>({"simple-framebuffer", "efi-framebuffer", "vesa-framebuffer"});

bool IsBelow(const fs::path& folder, const fs::path& parent) {
  return (folder.string() + '/').starts_with(parent.string() + '/');
}

/// Something that programs can draw on.
struct Output {
  fs::path device;   // links resolved
  std::string node;  // /dev/dri/card0
};

/// Those of the kernel's graphics classes: cards, not connectors.
std::vector<Output> ListOutputs() {
  constexpr struct {
    const char* folder;
    const char* prefix;
    const char* nodes;
  } kClasses[] = {{"/sys/class/drm", "card", "/dev/dri/"}, {"/sys/class/graphics", "fb", "/dev/"}};
  std::vector<Output> outputs;
  for (const auto& [folder, prefix, nodes] : kClasses) {
    const fs::path parent = os::SystemPath(folder);
    for (const std::string& name : ListNames(parent)) {
      if (!name.starts_with(prefix) || name.find('-') != std::string::npos) continue;
      const fs::path device = DeviceFolder(parent / name / "device");
      if (!device.empty()) outputs.push_back({device, nodes + name});
    }
  }
  return outputs;
}

/// In the processor's package or chip set: on its first bus, or beside the security processor that
/// such a package holds.
bool IsOnBoard(const PciDevice& card, const std::vector<PciDevice>& encryptors) {
  const auto slot = [](const PciDevice& device) {
    return std::string_view(device.address).substr(0, device.address.rfind('.'));
  };
  return card.IsOnFirstBus() || std::ranges::any_of(encryptors, [&](const PciDevice& other) {
           return slot(other) == slot(card);
         });
}

GraphicsCard Describe(const PciDevice& device, const std::vector<PciDevice>& encryptors) {
  constexpr std::uint64_t kMegabyte = std::uint64_t{1} << 20;
  const HardwareName name = NameOf(device);
  GraphicsCard card;
  card.device = device.folder;
  card.name = common::Trimmed(name.maker + ' ' + name.product);
  card.driver = device.driver;
  card.driverVersion = ReadLine(device.folder / "driver/module/version");
  card.memoryMegabytes = ReadNumber(device.folder / "mem_info_vram_total").value_or(0) / kMegabyte;
  card.isOnBoard = IsOnBoard(device, encryptors);
  card.isFirmwares = ReadLine(device.folder / "boot_vga") == "1";
  card.hasForeignDriver = !ReadLine(device.folder / "driver/module/taint").empty();
  return card;
}

/// A card on no bus that lists its devices, driver or not: part of the chip.
GraphicsCard DescribeOutput(const fs::path& output) {
  GraphicsCard card;
  card.device = output;
  card.driver = LinkedName(output, "driver");
  card.name = card.driver.empty() ? output.filename().string() : card.driver;
  card.driverVersion = ReadLine(output / "driver/module/version");
  card.isOnBoard = true;
  card.hasOutput = true;
  return card;
}

bool IsFirmwareOutput(const fs::path& output) {
  return std::ranges::count(kFirmwareDrivers, LinkedName(output, "driver")) > 0;
}

bool IsCardOfItsOwn(const fs::path& output) {
  return IsInner(output) && Exists(output / "driver") && !IsFirmwareOutput(output);
}

}  // namespace

std::vector<GraphicsCard> ListGraphicsCards() {
  const std::vector<PciDevice> encryptors = ListPciDevices(kEncryptionClass);
  std::vector<GraphicsCard> cards;
  for (const PciDevice& device : ListPciDevices(kDisplayClass))
    cards.push_back(Describe(device, encryptors));
  for (const Output& output : ListOutputs()) {
    const auto owner = std::ranges::find_if(
        cards, [&](const GraphicsCard& card) { return IsBelow(output.device, card.device); });
    if (owner != cards.end())
      owner->hasOutput = true;
    else if (IsCardOfItsOwn(output.device))
      cards.push_back(DescribeOutput(output.device));
  }
  return cards;
}

bool DrivesSession(const GraphicsCard& card) {
  std::set<std::string> nodes;
  for (const Output& output : ListOutputs()) {
    const bool isFirmwares = IsFirmwareOutput(output.device) && card.isFirmwares;
    if (isFirmwares || IsBelow(output.device, card.device)) nodes.insert(output.node);
  }
  const fs::path processes = os::SystemPath("/proc");
  for (const std::string& process : ListNames(processes)) {
    const fs::path files = processes / process / "fd";
    if (!LeadingNumber(process)) continue;
    for (const std::string& file : ListNames(files)) {
      std::error_code error;
      if (nodes.contains(fs::read_symlink(files / file, error).string())) return true;
    }
  }
  return false;
}

}  // namespace machine
