#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "platform/machine/interface/inventory.h"
#include "platform/machine/interface/machine.h"
#include "platform/machine/live/call_limits.h"
#include "platform/machine/live/disk.h"
#include "platform/machine/live/firmware.h"

// What the live machine knows to do with each category of hardware. A category is one file, or one
// in each system's folder where the systems differ.
namespace machine {

/// What was read of this machine: the answers to the information calls, and what its tests need.
struct Devices {
  FirmwareInfo firmware;    // read before any category
  std::vector<Disk> disks;  // in the order of the answers about them
  Inventory answers;
};

struct LiveTest {
  TestCall call;
  TestAnswer (*run)(const Devices& devices, TestCall call, int disk);
  CallLimit limit = CallLimit::None;
};

struct LiveSupport {
  SupportCall call;
  bool (*check)(SupportCall call);
};

struct LiveRepair {
  RepairCall call;
  RepairAnswer (*run)(std::uint32_t code);
  CallLimit limit = CallLimit::None;
};

/// A category names the calls that it can make on this system; any other finds no device.
struct Category {
  void (*read)(Devices& devices) = nullptr;
  std::span<const LiveTest> tests = {};
  std::span<const LiveSupport> supports = {};
  std::span<const LiveRepair> repairs = {};
};

Category ProcessorCategory();
Category MotherboardCategory();
Category MemoryCategory();
Category DiskCategory();
Category GraphicsCategory();
Category DisplayCategory();
Category NetworkCategory();
Category BatteryCategory();
Category KeyboardCategory();
Category SoundCategory();
Category BluetoothCategory();
Category FingerprintCategory();

using CategoryOf = Category (*)();

/// The categories that this system knows to do something with, in the order of their reading.
std::span<const CategoryOf> Categories();

}  // namespace machine
