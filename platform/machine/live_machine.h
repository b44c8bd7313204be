#pragma once

#include <mutex>
#include <string>
#include <vector>

#include "platform/machine/disk_list.h"
#include "platform/machine/machine.h"

namespace machine {

/// The machine that this program runs on, as its system tells of it. Reads the hardware once, on
/// the first question about it; what is plugged in later does not show. The tests of devices that
/// it cannot test answer that there is none.
class LiveMachine : public Machine {
 public:
  const Inventory& Info() override;
  std::wstring ProductName() override;
  TestAnswer Test(TestCall call, std::size_t ordinal, int disk) override;
  bool IsSupported(SupportCall call) override;
  RepairAnswer Repair(RepairCall call, std::size_t ordinal, std::uint32_t code) override;

 private:
  void ReadOnce();
  void Read();

  std::once_flag wasRead;
  Inventory inventory;
  std::wstring productName;
  std::vector<Disk> disks;
};

}  // namespace machine
