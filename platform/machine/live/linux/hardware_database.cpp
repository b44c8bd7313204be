#include "platform/machine/live/linux/hardware_database.h"

#include <string>

#include "platform/machine/live/linux/system_file.h"
#include "platform/os/paths.h"

namespace machine {
namespace {

constexpr std::size_t kDatabaseLimit = std::size_t{8} << 20;
constexpr const char* kFolders[] = {"/usr/share/hwdata/", "/usr/share/misc/"};

std::string ReadDatabase(const std::string& file) {
  for (const char* folder : kFolders) {
    const std::string path = folder + file;
    std::string database = ReadText(os::SystemPath(path), kDatabaseLimit);
    if (database.empty()) database = ReadText(path, kDatabaseLimit);
    if (!database.empty()) return database;
  }
  return {};
}

}  // namespace

HardwareName PciName(std::uint32_t maker, std::uint32_t product) {
  return FindHardwareName(ReadDatabase("pci.ids"), maker, product);
}

HardwareName UsbName(std::uint32_t maker, std::uint32_t product) {
  return FindHardwareName(ReadDatabase("usb.ids"), maker, product);
}

}  // namespace machine
