#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace machine {

/// A built-in graphics card, with a driver or without.
struct GraphicsCard {
  std::filesystem::path device;  // its folder, links resolved
  std::string name;              // with its maker
  std::string driver;            // empty when none is bound
  std::string driverVersion;     // of a driver that is no part of the kernel
  std::uint64_t memoryMegabytes = 0;
  bool isOnBoard = false;         // part of processor or chip set, else a card of its own
  bool isFirmwares = false;       // the one that the firmware shows its pictures on
  bool hasForeignDriver = false;  // which is no part of the kernel
  bool hasOutput = false;         // the kernel has something of it that programs can draw on
};

/// In the order of their addresses. Nothing that sleeps is woken.
std::vector<GraphicsCard> ListGraphicsCards();

/// Whether a program draws on it: a desktop, most of all. Sees the programs of other users only
/// with the administrator's rights.
bool DrivesSession(const GraphicsCard& card);

}  // namespace machine
