#include "sysdiagnose/catalogue/xml_helper.h"

#include <gmock/gmock.h>

#include "common/path_text.h"
#include "common/xml_document.h"
#include "tests/support/in_force.h"

namespace orv::sysdiagnose {
namespace {

using testing::ElementsAre;

std::vector<int> IdsOf(const std::vector<tagDetectItem>& items) {
  std::vector<int> ids;
  for (const tagDetectItem& item : items) ids.push_back(static_cast<int>(item.id));
  return ids;
}

std::vector<int> Read(const std::string& xml, const std::string& machine = "{}") {
  const InForce inForce(machine);
  inForce.WriteConfig("SysdiagnoseList.xml", xml);
  std::vector<tagDetectItem> items(3);
  XmlHelper::GetDetectItems(items);
  return IdsOf(items);
}

std::string Item(const std::string& id) {
  return "<DetectItem id='" + id + "' name='n' description='d'/>";
}

TEST(DetectItems, StartAtTheFirstItemElementAndGoOnWhateverTheName) {
  EXPECT_THAT(Read("<other/><sysdiagnose>text<skipped id='1' name='' description=''/>" + Item("4") +
                   "<![CDATA[x]]><renamed description='d' name='n' more='m' id='5'/>" + Item("5") +
                   "<DetectItem id='7' name='n'/><DetectItem Id='8' name='n' description='d'/>" +
                   "<DetectItem id='9' name='n' description='d'>" + Item("10") +
                   "</DetectItem></sysdiagnose>"),
              ElementsAre(4, 5, 5, 9));
  EXPECT_THAT(Read("<!-- c --><x/><sysdiagnose><!-- " + Item("5") + " -->" + Item("6") +
                   "</sysdiagnose><sysdiagnose>" + Item("8") + "</sysdiagnose>"),
              ElementsAre(6));
  EXPECT_THAT(Read("<sysdiagnose><wrong/></sysdiagnose>"), ElementsAre());
  EXPECT_THAT(Read(""), ElementsAre());
}

TEST(DetectItems, IdsAreReadAsTheCLibraryReadsThem) {
  EXPECT_THAT(Read("<sysdiagnose>" + Item(" +6x") + Item("abc") + Item("-1") + Item("12") +
                   Item("0x5") + "</sysdiagnose>"),
              ElementsAre(6, 0, -1, 12, 0));
}

TEST(DetectItems, TextsAreUtf8AndTheFirstOfTwoAttributesCounts) {
  const InForce inForce;
  inForce.WriteConfig("SysdiagnoseList.xml",
                      "\xEF\xBB\xBF<sysdiagnose><DetectItem id='4' id='5' name='\xE7\xA1\xAC&amp;' "
                      "description=''/></sysdiagnose>");
  std::vector<tagDetectItem> items;
  XmlHelper::GetDetectItems(items);
  ASSERT_EQ(items.size(), 1);
  EXPECT_EQ(items[0].id, enmHardwareID::Processor);
  EXPECT_EQ(items[0].name, L"\x786C&");
}

TEST(DetectItems, FingerprintNeedsThePluginAndOneOfFourModels) {
  const std::string list = "<sysdiagnose>" + Item("11") + "</sysdiagnose>";
  const auto offered = [&list](const std::string& shelf, const std::string& model) {
    const InForce inForce(R"({"product": "P", "registry": {"HKEY_LOCAL_MACHINE": )"
                          R"({"HARDWARE\\DESCRIPTION\\System\\Product": {"Version": ")" +
                          model + R"("}}}, "shelf": [)" + shelf + "]}");
    inForce.WriteConfig("SysdiagnoseList.xml", list);
    inForce.WriteConfig("MachineTypeList.xml", "<machineTypelist/>");
    std::vector<tagDetectItem> items;
    XmlHelper::GetDetectItems(items);
    return !items.empty();
  };
  EXPECT_TRUE(offered("\"PowerManagerUIPlugin\"", "TK-1"));
  EXPECT_TRUE(offered("\"PowerManagerUIPlugin\"", "LX-1"));
  EXPECT_FALSE(offered("\"PowerManagerUIPlugin\"", "OD-1"));
  EXPECT_FALSE(offered("\"powermanageruiplugin\"", "TK-1"));
  EXPECT_FALSE(offered("", "TK-1"));
}

TEST(DetectItems, WithoutBluetoothTheItemIsLeftOut) {
  const std::string list = "<sysdiagnose>" + Item("2") + Item("3") + "</sysdiagnose>";
  EXPECT_THAT(Read(list), ElementsAre(2, 3));
  EXPECT_THAT(Read(list, R"({"tests": {"CBluetoothDetect::IsSurportBt": false}})"), ElementsAre(3));
}

TEST(DetectItems, FaultsOfTheFileReachTheCallerAMissingFileDoesNot) {
  const InForce inForce;
  std::vector<tagDetectItem> items(1);
  XmlHelper::GetDetectItems(items);
  EXPECT_TRUE(items.empty());

  const auto file = inForce.folder.path / "app/config/SysdiagnoseList.xml";
  inForce.WriteConfig("SysdiagnoseList.xml", "<sysdiagnose><a></sysdiagnose");
  EXPECT_THROW(XmlHelper::GetDetectItems(items), common::XmlError);

  std::filesystem::remove(file);
  std::filesystem::create_directory(file);
  try {
    XmlHelper::GetDetectItems(items);
    FAIL();
  } catch (const std::runtime_error& error) {
    EXPECT_EQ(error.what(), "cannot open file " + common::PathText(file));
  }
}

}  // namespace
}  // namespace orv::sysdiagnose
