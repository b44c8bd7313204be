#include "platform/util/registry.h"

#include <gtest/gtest.h>

#include "platform/machine/current.h"
#include "platform/os/paths.h"
#include "platform/util/store.h"
#include "tests/support/fake_machine.h"
#include "tests/support/temporary_folder.h"

namespace {

const std::string kRoot = "HKEY_LOCAL_MACHINE";
const std::string kKey = "HARDWARE\\DESCRIPTION\\System\\Product";

std::wstring Value(const std::string& name) {
  std::wstring value = L"untouched";
  return DE::Registry::GetValue(kRoot, kKey, name, value, DE::Registry::kReadAccess)
             ? value
             : value + L", none";
}

bool Write(const std::string& name, const std::wstring& value) {
  return DE::Registry::SetValue(kRoot, kKey, name, value, DE::Registry::kAllAccess);
}

FakeMachine& Describe(const std::string& identity) {
  auto owned = std::make_unique<FakeMachine>();
  FakeMachine& described = *owned;
  described.identity = identity;
  machine::SetCurrent(std::move(owned));
  return described;
}

TEST(Registry, OfADescribedMachineIsItsOwn) {
  const TemporaryFolder folder;
  os::SetDataFolder(folder.path);
  util::Store store(folder.path);
  store.SetRegistryValue(kRoot, kKey, "Version", "of this machine");

  Describe("A").registry[{kRoot, kKey, "Named"}] = L"by the file";
  EXPECT_EQ(Value("Version"), L"untouched, none");
  EXPECT_TRUE(Write("Version", L"\u00fcberschrieben \U0001F4BB"));
  EXPECT_EQ(Value("Version"), L"\u00fcberschrieben \U0001F4BB");
  EXPECT_EQ(Value("version"), L"untouched, none");
  EXPECT_FALSE(Write("Named", L"anything else"));
  EXPECT_EQ(Value("Named"), L"by the file");

  Describe("B");
  EXPECT_EQ(Value("Version"), L"untouched, none");
  Describe("A");
  EXPECT_EQ(Value("Version"), L"\u00fcberschrieben \U0001F4BB");
  EXPECT_EQ(Value("Named"), L"untouched, none") << "it was never written";
  machine::SetCurrent(nullptr);
  EXPECT_EQ(store.RegistryValue(kRoot, kKey, "Version"), "of this machine");
}

}  // namespace
