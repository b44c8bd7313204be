#include <gtest/gtest.h>

#include "platform/machine/current.h"
#include "sysdiagnose/plugin/frame/entry_points.h"
#include "sysdiagnose/plugin/frame/normal_object.h"
#include "sysdiagnose/plugin/plugin_sysdiagnose.h"
#include "tests/support/fake_machine.h"

namespace {

using orv::sysdiagnose::CPluginSysdiagnose;

constexpr const char* kClassId = "orv.plugin.sysdiagnose";

TEST(InterfaceId, IsTheHashOfTheNameTakenAsSignedBytes) {
  EXPECT_EQ(x3::IdOf<x3::IObject>(), 0xB2CC1920);
  EXPECT_EQ(x3::HashName("\xFF"), 0xFFFFFFFF);
  EXPECT_EQ(x3::HashName(""), 0u);
}

TEST(Factory, MakesThePluginForItsTwoInterfacesOnly) {
  const x3::InterfaceId root = x3::IdOf<x3::IObject>();
  const x3::InterfaceId plugin = x3::IdOf<IQVXPlugin>();
  const x3::InterfaceId uiPlugin = x3::IdOf<IQVXUIPlugin>();
  const struct {
    const char* classId;
    x3::InterfaceId interfaceId;
    bool made;
  } cases[] = {{kClassId, plugin, true},
               {kClassId, uiPlugin, true},
               {kClassId, root, false},
               {"", plugin, true},
               {"", uiPlugin, true},
               {"", root, false},
               {"orv.plugin.SysDiagnose", uiPlugin, false}};
  for (const auto& each : cases) {
    SCOPED_TRACE(testing::Message() << each.classId << " " << each.interfaceId);
    for (const auto create : {&x3InternalCreate, &x3CreateObject}) {
      x3::IObject* object = reinterpret_cast<x3::IObject*>(1);
      EXPECT_EQ(create(each.classId, each.interfaceId, &object), each.made);
      ASSERT_EQ(object != nullptr, each.made);
      if (object != nullptr) {
        EXPECT_EQ(object->Release(), 0);
      }
    }
  }
}

class PluginObject : public testing::Test {
 protected:
  PluginObject() {
    x3::IObject* object = nullptr;
    if (x3InternalCreate(kClassId, x3::IdOf<IQVXUIPlugin>(), &object))
      plugin = static_cast<IQVXUIPlugin*>(object);
  }
  void SetUp() override { ASSERT_NE(plugin, nullptr); }
  ~PluginObject() override {
    if (plugin != nullptr) {
      EXPECT_EQ(plugin->Release(), 0);
    }
    machine::SetCurrent(nullptr);
  }

  static void Offer(const std::vector<std::string>& keys) {
    auto fake = std::make_unique<FakeMachine>();
    fake->shelf = keys;
    machine::SetCurrent(std::move(fake));
  }

  IQVXUIPlugin* plugin = nullptr;
};

TEST_F(PluginObject, IsCounted) {
  EXPECT_EQ(plugin->Retain(), 2);
  x3::IObject* same = nullptr;
  EXPECT_TRUE(plugin->Query(x3::IdOf<IQVXPlugin>(), &same));
  EXPECT_EQ(same, plugin);
  EXPECT_EQ(same->Release(), 2);
  EXPECT_EQ(plugin->Release(), 1);
}

TEST_F(PluginObject, ARefusedOrNullQueryLeavesTheOutPointerAlone) {
  x3::IObject* const before = plugin;
  x3::IObject* out = before;
  EXPECT_FALSE(plugin->Query(x3::IdOf<x3::IObject>(), &out));
  using Object = x3::NormalObject<CPluginSysdiagnose>;
  EXPECT_TRUE(Object::Answer(nullptr, x3::IdOf<IQVXUIPlugin>(), &out));
  EXPECT_FALSE(Object::Answer(nullptr, x3::IdOf<x3::IObject>(), &out));
  EXPECT_EQ(out, before);
  EXPECT_EQ(plugin->Retain(), 2) << "nor was it retained";
  plugin->Release();
}

TEST_F(PluginObject, AnswersWhatTheHostReliesOn) {
  EXPECT_STREQ(plugin->ClassId(), kClassId);
  EXPECT_STREQ(plugin->ClassName(), "CPluginSysdiagnose");
  EXPECT_EQ(plugin->PluginKey(), L"PluginSysdiagnose");
  EXPECT_TRUE(plugin->OnHostNotification8());
  EXPECT_TRUE(plugin->OnHostNotification9());
  EXPECT_TRUE(plugin->OnHostNotification10());
}

TEST_F(PluginObject, TheProductsShelfDecidesBeforeTheContextIsLookedAt) {
  Offer({"orv_plugin_battery", "orv_plugin_hardware2"});
  PageCreationContext context;
  context.AddPageCallback = [](int, const std::wstring&, DuiLib::CControlUI*) {
    ADD_FAILURE() << "a page for a product without the plugin";
  };
  EXPECT_TRUE(plugin->CreateUI(nullptr));
  EXPECT_TRUE(plugin->CreateUI(&context));

  Offer({"orv_plugin_battery", "orv_plugin_hardware"});
  EXPECT_FALSE(plugin->CreateUI(nullptr));
}

}  // namespace
