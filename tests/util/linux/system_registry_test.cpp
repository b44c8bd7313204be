#include <gtest/gtest.h>

#include "platform/machine/current.h"
#include "platform/os/paths.h"
#include "platform/util/registry.h"
#include "platform/util/store.h"
#include "tests/support/temporary_folder.h"

namespace {

TEST(SystemRegistry, OfTheLiveMachineIsTheDataStore) {
  const TemporaryFolder folder;
  os::SetDataFolder(folder.path);
  machine::SetCurrent(nullptr);
  constexpr auto kAccess = DE::Registry::kAllAccess;
  std::wstring value;
  EXPECT_FALSE(DE::Registry::GetValue("HKEY_LOCAL_MACHINE", "Key", "Name", value, kAccess));
  util::Store store(folder.path);
  store.SetRegistryValue("HKEY_LOCAL_MACHINE", "Key", "Name", "stored");
  EXPECT_TRUE(DE::Registry::GetValue("HKEY_LOCAL_MACHINE", "Key", "Name", value, kAccess));
  EXPECT_EQ(value, L"stored");
  EXPECT_TRUE(DE::Registry::SetValue("HKEY_LOCAL_MACHINE", "Key", "Name", L"new", kAccess));
  EXPECT_EQ(store.RegistryValue("HKEY_LOCAL_MACHINE", "Key", "Name"), "new");
}

}  // namespace
