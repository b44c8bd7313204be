#include <gtest/gtest.h>

#include <algorithm>

#include "common/path_text.h"
#include "tests/cli/program.h"
#include "tests/support/temporary_folder.h"

namespace {

std::size_t Count(const std::string& text, const std::string& part) {
  std::size_t count = 0;
  for (std::size_t at = 0; (at = text.find(part, at)) != std::string::npos; at += part.size())
    ++count;
  return count;
}

// An installation's configuration, a machine, and the folders of a user and a system.
class ConfigurationTest : public testing::Test {
 protected:
  ConfigurationTest() { WriteText(folder.path / "machine.json", R"({"shelf":[]})"); }

  void WriteList(const std::string& text) const { WriteText(list, text); }
  void WriteMachine(const std::string& text) const {
    WriteText(folder.path / "machine.json", text);
  }

  Outcome Run(const std::string& command, int exitStatus = 0) const {
    Outcome outcome = RunProgram(
        {"--json", "--lang", "ids", "--machine", (folder.path / "machine.json").string(),
         "--data-dir", (folder.path / "data").string(), "--app-dir", (folder.path / "app").string(),
         "--system-root", (folder.path / "system").string(), command});
    EXPECT_EQ(outcome.exitStatus, exitStatus);
    EXPECT_EQ(outcome.errors, "");
    return outcome;
  }

  std::string Log() const { return ReadText(folder.path / "data/log/sysdiagnose.log"); }

  const TemporaryFolder folder;
  const std::filesystem::path list = folder.path / "app/config/SysdiagnoseList.xml";
  const std::filesystem::path models = folder.path / "app/config/MachineTypeList.xml";
};

std::string Item(const std::string& id, const std::string& name = "n") {
  return "<DetectItem id=\"" + id + "\" name=\"" + name + "\" description=\"d\"/>";
}

std::string Root(const std::string& items) {
  return "<sysdiagnose>" + items + "</sysdiagnose>";
}

// An item whose elements make the file this deep.
std::string Nested(int depth) {
  std::string opening;
  std::string closing;
  for (int i = 2; i < depth; ++i) {
    opening += "<a>";
    closing += "</a>";
  }
  return Root("<DetectItem id=\"1\" name=\"n\" description=\"d\">" + opening + closing +
              "</DetectItem>");
}

TEST_F(ConfigurationTest, AnUnusableListOffersNothingAndSaysSoInTheLogAlone) {
  const std::string file = common::PathText(list);
  std::string fileInJson;
  for (const char letter : file) fileInJson += letter == '\\' ? "\\\\" : std::string(1, letter);
  const struct {
    const char* name;
    std::string text;  // none: no file
    std::string logged;
  } cases[] = {
      {"missing", "", ""},
      {"cut off", "<sysdiagnose>\n  " + Item("1"), file + ":2:"},
      {"too deep", Nested(65), file + ":1:"},
      {"a folder", "folder", "cannot open file " + file},
  };
  for (const auto& fault : cases) {
    SCOPED_TRACE(fault.name);
    std::filesystem::remove_all(folder.path / "app");
    std::filesystem::remove_all(folder.path / "data");
    if (fault.text == "folder")
      std::filesystem::create_directories(list);
    else if (!fault.text.empty())
      WriteList(fault.text);

    EXPECT_EQ(Run("list").output, "");
    EXPECT_EQ(Count(Log(), "ERROR"), fault.logged.empty() ? 0u : 1u) << Log();
    EXPECT_NE(Log().find(fault.logged), std::string::npos) << Log();
    for (const char* command : {"run", "check"})
      EXPECT_EQ(Run(command, 4).output,
                R"({"type":"failed","error":"IDS_HARDWARE_TERMINAL_NOTHING_OFFERED()" + fileInJson +
                    R"x()","verdict":"notTested"})x" + "\n");
  }
}

TEST_F(ConfigurationTest, AnUnknownCategoryCountsAsNormalAndLeavesNoMark) {
  WriteList(Root(Item("-1") + Item("12")));
  EXPECT_EQ(Count(Run("list").output, R"("caption":"","deviceSummary":"","deviceDetail":"")"), 2u);
  EXPECT_EQ(Run("info").output, "");
  const std::string run = Run("run").output;
  EXPECT_TRUE(run.starts_with(
      R"({"type":"category","category":-1,"verdict":"notTested","reason":"IDS_HARDWARE_TERMINAL_NOTHING_TO_TEST"}
{"type":"category","category":12,"verdict":"notTested","reason":"IDS_HARDWARE_TERMINAL_NOTHING_TO_TEST"}
{"type":"finished","abnormal":0,"firstAbnormal":-1,"verdict":"notTested"})"
      "\n"
      R"({"type":"record","cells":[-1,-1,-1,-1,-1,-1,-1,-1,-1,-1,-1,-1,2,0,)"))
      << run;
}

TEST_F(ConfigurationTest, BluetoothIsLeftOutWithOneWarningWhereThereIsNone) {
  WriteList(Root(Item("2") + Item("1")));
  WriteMachine(R"({"tests":{"CBluetoothDetect::IsSurportBt":false}})");
  EXPECT_EQ(Count(Run("list").output, "\n"), 1u);
  EXPECT_EQ(Count(Log(), "WARN"), 1u) << Log();
  EXPECT_EQ(Count(Log(), "is not support BT, ignore bt item"), 1u);
}

TEST_F(ConfigurationTest, TheFingerprintReaderIsOfferedOnItsModelsOnly) {
  WriteList(Root(Item("11")));
  WriteText(models,
            "<machineTypelist><machineType><type>Lynx</type><signList>LYNX 13;LYNX 15</signList>"
            "</machineType><machineType><type>Orchid</type><signList>ORCHID 13</signList>"
            "</machineType></machineTypelist>");
  const struct {
    std::string product;
    std::string version;  // registry
    bool offered;
    const char* shelf = "PowerManagerUIPlugin";
  } cases[] = {
      {"lynx 15", "", true},
      {"lynx 15", "", false, "AppLogUpload"},
      {"LYNX", "", false},
      {"ORCHID 13", "TK-1", false},
      {"Unknown", "tk-1.02_A", true},
      {"Unknown", "OD-1", false},
  };
  for (const auto& machine : cases) {
    SCOPED_TRACE(machine.product + " / " + machine.version);
    WriteMachine(R"({"product":")" + machine.product + R"(","shelf":[")" + machine.shelf +
                 R"("],"registry":{"HKEY_LOCAL_MACHINE":{)"
                 R"("HARDWARE\\DESCRIPTION\\System\\Product":{"Version":")" +
                 machine.version + R"("}}}})");
    EXPECT_EQ(Count(Run("list").output, "\n"), machine.offered ? 1u : 0u);
  }
}

TEST_F(ConfigurationTest, TheVersionFileOfTheMakerIsKeptAfterItIsGone) {
  WriteList(Root(Item("11")));
  WriteMachine(R"({"shelf":["PowerManagerUIPlugin"]})");
  EXPECT_EQ(Run("list").output, "");
  const std::filesystem::path file = folder.path / "system/recovery/OEM/version.txt";
  WriteText(file, "TK-1.02_A\r\n");
  EXPECT_NE(Run("list").output, "");
  WriteText(file, "");
  EXPECT_NE(Run("list").output, "");
  std::filesystem::remove(file);
  EXPECT_NE(Run("list").output, "");
  WriteText(file, "OD-2");
  EXPECT_EQ(Run("list").output, "");
}

}  // namespace
