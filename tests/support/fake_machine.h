#pragma once

#include <map>
#include <tuple>

#include "platform/machine/interface/machine.h"

// A machine with a registry and a shelf, and nothing else.
class FakeMachine : public machine::Machine {
 public:
  const machine::Inventory& Info() override { return inventory; }
  std::wstring ProductName() override { return L"Sample 14"; }
  machine::TestAnswer Test(machine::TestCall, std::size_t, int) override { return {}; }
  bool IsSupported(machine::SupportCall) override { return true; }
  machine::RepairAnswer Repair(machine::RepairCall, std::size_t, std::uint32_t) override {
    return {};
  }
  std::optional<std::vector<std::string>> Shelf() override { return shelf; }
  std::optional<std::wstring> RegistryValue(const std::string& root, const std::string& key,
                                            const std::string& name) override {
    const auto found = registry.find({root, key, name});
    if (found == registry.end()) return std::nullopt;
    return found->second;
  }

  std::string Identity() override { return identity; }

  std::string identity;
  machine::Inventory inventory;
  std::optional<std::vector<std::string>> shelf;
  std::map<std::tuple<std::string, std::string, std::string>, std::wstring> registry;
};
