#include "sysdiagnose/environment/system_environment.h"

#include <gmock/gmock.h>

#include "platform/machine/current.h"
#include "sysdiagnose/environment/product_version.h"
#include "tests/support/in_force.h"

namespace orv::sysdiagnose {
namespace {

constexpr const char* kProduct = R"({"product": "tusk 14"})";

std::string List(const std::string& entries) {
  return "<machineTypelist>" + entries + "</machineTypelist>";
}

std::vector<std::string> Read(const std::string& xml) {
  const InForce inForce;
  inForce.WriteConfig("MachineTypeList.xml", xml);
  std::vector<MachineEntry> entries;
  SystemEnvironment::GetSupportMachineList(entries);
  std::vector<std::string> read;
  for (const MachineEntry& entry : entries) {
    std::string text = entry.type + "=";
    for (const std::string& sign : entry.signList) text += "[" + sign + "]";
    read.push_back(text);
  }
  return read;
}

TEST(MachineList, TypeAndSignsCarryOverToEntriesThatLackThem) {
  using testing::ElementsAre;
  EXPECT_THAT(Read(List("<other><type>X</type><signList>X</signList></other>"
                        "<machineType><type>A</type></machineType>"
                        "<machineType><signList>S1;S2</signList></machineType>"
                        "<renamed><type>B</type></renamed>"
                        "<machineType><type>C</type><signList></signList></machineType>"
                        "<machineType><type>D</type></machineType>"
                        "<machineType><signList><![CDATA[S<3]]></signList></machineType>")),
              ElementsAre("A=[S1][S2]", "B=[S1][S2]", "D=[S<3]"));
}

TEST(MachineList, AFaultyFileGivesNoModelsAndNoException) {
  for (const char* xml : {"", "<other/>", "<machineTypelist>", "no xml"})
    EXPECT_TRUE(Read(xml).empty()) << xml;
}

TEST(DeviceType, TheUpperCaseProductNameMatchesASignToTheLetter) {
  const InForce inForce(kProduct);
  std::string type = "before";
  std::int32_t position = 7;
  SystemEnvironment::GetDeviceTypeFromSMBIOS(type, position);
  EXPECT_EQ(type, "");
  EXPECT_EQ(position, -1);

  // An empty list is read again, a filled one is kept.
  inForce.WriteConfig(
      "MachineTypeList.xml",
      List("<machineType><type>Lower</type><signList>tusk 14</signList></machineType>"
           "<machineType><type>Part</type><signList>TUSK</signList></machineType>"
           "<machineType><type>Tusk</type><signList>X;TUSK 14</signList></machineType>"));
  SystemEnvironment::GetDeviceTypeFromSMBIOS(type, position);
  EXPECT_EQ(type, "Tusk");
  EXPECT_EQ(position, 2);
  inForce.WriteConfig("MachineTypeList.xml", List(""));
  EXPECT_EQ(SystemEnvironment::GetMachineType(), "Tusk");
}

TEST(MachineType, FollowsTheFirstPrefixFoundInTheVersionText) {
  struct Case {
    const char* version;
    const char* type;
  };
  constexpr Case kCases[] = {
      {"  tk-1.02_A\r\n", "Tusk"}, {"A1-LX-2", "Lynx"}, {"ORC-1", "Orchid"}, {"od-1", "Orchid"},
      {"TK-1 QF-2", "QF"},         {"A_TK-1", ""},      {"TK", ""},          {"T\x01K-1", "Tusk"},
  };
  const InForce inForce;
  for (const auto& [version, type] : kCases) {
    inForce.WriteOemVersion(version);
    EXPECT_EQ(SystemEnvironment::GetMachineType(), type) << version;
  }
}

TEST(ProductVersion, OutlivesItsFileInTheRegistry) {
  const InForce inForce;
  EXPECT_EQ(SystemEnvironment::GetProductVersion(), "");
  inForce.WriteOemVersion("TK-7_B");
  EXPECT_EQ(SystemEnvironment::GetProductVersion(), "TK-7");
  std::filesystem::remove_all(inForce.folder.path / "root");
  EXPECT_EQ(SystemEnvironment::GetProductVersion(), "TK-7");
  inForce.WriteOemVersion("");
  EXPECT_EQ(SystemEnvironment::GetProductVersion(), "TK-7");
}

TEST(ProductVersion, OfADescribedMachineIsItsOwnElseOfTheSystemRootGivenForIt) {
  constexpr const char* kPlace = "HARDWARE\\\\DESCRIPTION\\\\System\\\\Product";
  const std::string own = std::string(R"({"registry": {"HKEY_LOCAL_MACHINE": {")") + kPlace +
                          R"(": {"Version": "LX-1_A"}}}})";
  const InForce inForce;
  inForce.WriteOemVersion("TK-7_B");
  EXPECT_EQ(SystemEnvironment::GetProductVersion(), "TK-7");
  machine::SetCurrent(machine::ParseMachine(own, "own"));
  EXPECT_EQ(SystemEnvironment::GetProductVersion(), "LX-1");

  EXPECT_NE(os::OemVersionFile(), "");
  os::SetSystemRoot({});
  EXPECT_EQ(os::OemVersionFile(), "");
  machine::SetCurrent(nullptr);
  EXPECT_NE(os::OemVersionFile(), "");
}

TEST(ProductVersion, ATextOfSixtyFourCharactersIsRefusedNotCut) {
  EXPECT_EQ(CleanProductVersion(std::string(63, 'v')), std::string(63, 'v'));
  EXPECT_EQ(CleanProductVersion(std::string(64, 'v')), "");
  EXPECT_EQ(CleanProductVersion(std::string(64, ' ')), "");
}

}  // namespace
}  // namespace orv::sysdiagnose
