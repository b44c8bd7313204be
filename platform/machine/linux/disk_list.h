#pragma once

#include <string>
#include <vector>

#include "platform/machine/inventory.h"

namespace machine {

/// A disk as the kernel describes it. What it does not tell is empty.
struct Disk {
  std::string device;   // file name in /dev
  std::string caption;  // maker and model, or the device's name
  std::uint64_t vendorGigabytes = 0;
  std::string serialNumber;
  std::string firmwareRevision;
  bool isSolidState = false;
};

/// The disks of the machine, sorted by the kernel's names: block devices that a device stands
/// behind and that have a size, optical and floppy drives left out.
std::vector<Disk> ListDisks();

/// Sets the answers about the disks, in this order.
void FillDisks(Inventory& inventory, const std::vector<Disk>& disks);

}  // namespace machine
