#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/machine/interface/calls.h"
#include "platform/machine/interface/inventory.h"
#include "platform/machine/interface/parts.h"
#include "platform/os/export.h"

namespace machine {

/// What a test library answers: code 0 is passed, except for SMART, where 1 is a healthy disk and 2
/// one that cannot be read.
struct TestAnswer {
  std::uint32_t code = 0;
  std::wstring text{};
  bool pass = true;
  std::vector<std::uint8_t> flags{};  // SMART attributes out of limits, in the call's flag order
  std::wstring notTested{};           // why the test could not be made; empty when it was
};

struct RepairAnswer {
  std::uint32_t code = 0;
  bool restart = false;
  std::wstring text{};
};

/// The machine that the hardware libraries ask: this one, or one described by a file.
///
/// Any thread; one object may be asked by several at once. A call may throw what its library would.
class UTIL_API Machine {
 public:
  virtual ~Machine() = default;

  virtual const Inventory& Info() = 0;

  /// Product name of the firmware's system record.
  virtual std::wstring ProductName() = 0;

  /// Runs a test. `ordinal` counts the calls that one detector object has made of this test, from
  /// 0; `disk` is the index of the disk that a SMART test is about.
  virtual TestAnswer Test(TestCall call, std::size_t ordinal, int disk) = 0;

  virtual bool IsSupported(SupportCall call) = 0;

  /// Runs a repair for a failed test's code. `ordinal` as for tests.
  virtual RepairAnswer Repair(RepairCall call, std::size_t ordinal, std::uint32_t code) = 0;

  /// The plugin keys that the product offers, where the machine itself says so.
  virtual std::optional<std::vector<std::string>> Shelf() { return std::nullopt; }

  /// A value of the registry that the machine itself holds; the live one leaves it to the system's.
  /// Key names match as they are written.
  virtual std::optional<std::wstring> RegistryValue(const std::string& root, const std::string& key,
                                                    const std::string& name) {
    (void)root, (void)key, (void)name;
    return std::nullopt;
  }

  /// What the machine is built without, so that it is no fault that it is not there.
  virtual std::vector<Part> NotFitted() { return {}; }

  /// What tells described machines apart; equal descriptions have the same.
  virtual std::string Identity() { return {}; }
};

}  // namespace machine
