#pragma once

#include <mutex>

#include "platform/machine/interface/machine.h"
#include "platform/machine/live/category.h"

namespace machine {

/// The machine that this program runs on, as its system tells of it. Reads the hardware once, on
/// the first question about it; what is plugged in later does not show. The tests of devices that
/// it cannot test answer that there is none.
class LiveMachine : public Machine {
 public:
  /// Where the calls are made that have a limit. In this process nothing holds them to it.
  enum class Place { ThisProcess, ChildProcess };

  explicit LiveMachine(Place place = Place::ThisProcess) : guarded(place == Place::ChildProcess) {}

  const Inventory& Info() override;
  std::wstring ProductName() override;
  TestAnswer Test(TestCall call, std::size_t ordinal, int disk) override;
  bool IsSupported(SupportCall call) override;
  RepairAnswer Repair(RepairCall call, std::size_t ordinal, std::uint32_t code) override;
  std::vector<Part> NotFitted() override;

 private:
  const Devices& ReadOnce();

  const bool guarded;
  std::once_flag wasRead;
  Devices devices;
};

}  // namespace machine
