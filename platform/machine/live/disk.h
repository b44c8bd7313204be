#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace machine {

/// A disk as the system describes it. What it does not tell is empty.
struct Disk {
  std::string device;   // what the SMART tool is told to look at
  std::string caption;  // maker and model, or the device's name
  std::uint64_t vendorGigabytes = 0;
  std::string serialNumber;
  std::string firmwareRevision;
  bool isSolidState = false;
  bool isExternal = false;  // plugged in, not built in
};

/// The disks that are there in the system's order: those that a device stands behind and that have
/// a size, optical and floppy drives left out.
std::vector<Disk> ListDisks();

/// Whether disks that are plugged in count among the machine's too; they do not unless told here.
/// For a program's start.
void CountExternalDisks(bool count);

/// What a disk of this vendor and model is called. A transport that is given as the vendor of every
/// disk behind it is left out.
std::string DiskCaption(const std::string& vendor, const std::string& model);

}  // namespace machine
