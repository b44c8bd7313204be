#include "platform/util/registry.h"

#include <gtest/gtest.h>

#include "platform/machine/current.h"
#include "platform/os/paths.h"
#include "platform/util/store.h"
#include "tests/support/fake_machine.h"
#include "tests/support/temporary_folder.h"

namespace {

constexpr auto kAccess = DE::Registry::kAllAccess;
const std::string kRoot = "HKEY_LOCAL_MACHINE";
const std::string kKey = "HARDWARE\\DESCRIPTION\\System\\Product";

std::wstring Value(const std::string& name) {
  std::wstring value = L"untouched";
  return DE::Registry::GetValue(kRoot, kKey, name, value, kAccess) ? value : value + L", none";
}

TEST(Registry, AnswersWithTheWrittenValueThenTheMachinesThenTheStoredOne) {
  const TemporaryFolder folder;
  os::SetDataFolder(folder.path);
  util::Store store(folder.path);
  store.SetRegistryValue(kRoot, kKey, "Version", "stored \xe7\x89\x88 \xf0\x9f\x92\xbb");

  auto owned = std::make_unique<FakeMachine>();
  FakeMachine& machine = *owned;
  machine::SetCurrent(std::move(owned));
  EXPECT_EQ(Value("Version"), L"stored \u7248 \U0001F4BB");
  EXPECT_EQ(Value("version"), L"untouched, none");
  machine.registry[{kRoot, kKey, "Version"}] = L"from the machine";
  EXPECT_EQ(Value("Version"), L"from the machine");

  EXPECT_TRUE(DE::Registry::SetValue(kRoot, kKey, "Version", L"\u00fcberschrieben", kAccess));
  EXPECT_EQ(Value("Version"), L"\u00fcberschrieben");
  EXPECT_EQ(store.RegistryValue(kRoot, kKey, "Version"),
            "\xc3\xbc"
            "berschrieben");
  machine::SetCurrent(nullptr);
}

}  // namespace
