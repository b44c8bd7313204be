#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "platform/machine/live/hardware_names.h"

namespace machine {

/// A built-in network adapter.
struct NetworkAdapter {
  std::string interface;         // wlan0; empty when its driver has made none
  std::filesystem::path device;  // its folder, links resolved
  std::filesystem::path radio;   // that of its radio; empty for a wired one
  HardwareName name;
  std::string driver;  // empty when none is bound
  std::string address;
  bool isWireless = false;
};

/// Those with an interface by its name, then those without. Each radio counts once.
std::vector<NetworkAdapter> ListNetworkAdapters();

}  // namespace machine
