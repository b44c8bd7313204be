#include <gtest/gtest.h>

#include "platform/plugins_manager/plugin_interfaces.h"
#include "tests/plugins_manager/manager_functions.h"

namespace {

constexpr const char* kClassId = "orv.plugin.sysdiagnose";
constexpr const char* kManager = "PluginsManager.dll";

bool Answers(x3::IObject& object, x3::InterfaceId id) {
  x3::IObject* found = nullptr;
  if (!object.Query(id, &found)) return false;
  EXPECT_EQ(found, &object);
  found->Release();
  return true;
}

void ExpectOnlyPluginInterfaces(x3::IObject& object) {
  EXPECT_TRUE(Answers(object, x3::IdOf<IQVXPlugin>()));
  EXPECT_TRUE(Answers(object, x3::IdOf<IQVXUIPlugin>()));
  EXPECT_FALSE(Answers(object, x3::IdOf<x3::IObject>()));
}

TEST(PluginAlone, BringsTheManagerAndSignsOnAndOffWithIt) {
  ASSERT_EQ(os::FindLoadedModule(kManager), nullptr);
  for (std::uint32_t round = 1; round <= 200; ++round) {
    SCOPED_TRACE(round);
    const os::ModuleHandle plugin = os::LoadModule(PLUGIN);
    ASSERT_NE(plugin, nullptr);
    ASSERT_NE(os::FindLoadedModule(kManager), nullptr);
    const ManagerFunctions manager(os::FindLoadedModule(kManager));
    EXPECT_EQ(manager.counts(kClassId).registered, round);
    EXPECT_EQ(manager.counts(kClassId).unregistered, round - 1);

    auto* const object = manager.Create<IQVXUIPlugin>(kClassId);
    ASSERT_NE(object, nullptr);
    EXPECT_EQ(object->PluginKey(), L"PluginSysdiagnose");
    ExpectOnlyPluginInterfaces(*object);
    EXPECT_EQ(object->Release(), 0);

    os::ReleaseModule(plugin);
    EXPECT_EQ(os::FindLoadedModule(PLUGIN), nullptr);
    EXPECT_EQ(manager.counts(kClassId).unregistered, round);
    EXPECT_EQ(manager.Create<IQVXUIPlugin>(kClassId), nullptr);
    ASSERT_FALSE(HasFailure());
  }
}

TEST(PluginAlone, TheHandleOfAnAddressIsTheLoadersOwn) {
  const os::ModuleHandle plugin = os::LoadModule(PLUGIN);
  ASSERT_NE(plugin, nullptr);
  EXPECT_EQ(os::ModuleOfAddress(os::FindProcedure(plugin, "x3InitPlugin")), plugin);
  os::ReleaseModule(plugin);
}

}  // namespace
