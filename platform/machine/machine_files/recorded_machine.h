#pragma once

#include <array>
#include <chrono>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/machine/interface/machine.h"

namespace machine {

/// One answer of a test or a repair. Members that the call does not hand out stay as they are.
struct RecordedAnswer {
  std::uint32_t code = 0;
  std::wstring text;
  std::wstring notTested;
  bool pass = true;
  bool restart = false;
  std::vector<std::uint8_t> flags;
  std::chrono::milliseconds delay{0};
  std::optional<std::string> fault;  // thrown instead of answered, after the delay
};

/// The answers of successive calls; the last one repeats.
using RecordedAnswers = std::vector<RecordedAnswer>;

/// Root, key and name of a registry value.
using RegistryPlace = std::array<std::string, 3>;

/// Everything that a machine file says. A call without answers takes the default one.
struct Recording {
  std::wstring product;
  std::optional<std::vector<std::string>> shelf;
  std::vector<Part> notFitted;
  std::map<RegistryPlace, std::wstring> registry;
  Inventory info;
  std::array<RecordedAnswers, kCountOf<TestCall>> tests;
  std::array<RecordedAnswers, kCountOf<RepairCall>> repairs;
  std::array<std::optional<bool>, kCountOf<SupportCall>> supports;  // true unless given
};

/// What a test answers when a file gives no code: passed, which for SMART is 1.
std::uint32_t PassedCode(const TestCallRow& row);

/// Whether a test hands out a verdict beside its code: the fingerprint tests do.
bool HasVerdict(TestCall call);

/// A machine that gives recorded answers. Never changes, so that any thread may ask.
class RecordedMachine final : public Machine {
 public:
  RecordedMachine(Recording answers, std::string identityOfFile)
      : recording(std::move(answers)), identity(std::move(identityOfFile)) {}

  const Inventory& Info() override { return recording.info; }
  std::wstring ProductName() override { return recording.product; }
  TestAnswer Test(TestCall call, std::size_t ordinal, int disk) override;
  bool IsSupported(SupportCall call) override;
  RepairAnswer Repair(RepairCall call, std::size_t ordinal, std::uint32_t code) override;
  std::optional<std::vector<std::string>> Shelf() override { return recording.shelf; }
  std::optional<std::wstring> RegistryValue(const std::string& root, const std::string& key,
                                            const std::string& name) override;
  std::vector<Part> NotFitted() override { return recording.notFitted; }
  std::string Identity() override { return identity; }

 private:
  const Recording recording;
  const std::string identity;
};

}  // namespace machine
