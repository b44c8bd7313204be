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

  Outcome Run(const std::string& command) const {
    Outcome outcome = RunProgram(
        {"--json", "--lang", "ids", "--machine", (folder.path / "machine.json").string(),
         "--data-dir", (folder.path / "data").string(), "--app-dir", (folder.path / "app").string(),
         "--system-root", (folder.path / "system").string(), command});
    EXPECT_EQ(outcome.exitStatus, 0);
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
  const struct {
    const char* name;
    std::string text;  // none: no file
    std::string logged;
  } cases[] = {
      {"missing", "", ""},
      {"without its root", "<?xml version=\"1.0\"?><other>" + Item("1") + "</other>", ""},
      {"without items", Root("<Item id=\"1\" name=\"n\" description=\"d\"/>"), ""},
      {"cut off", "<sysdiagnose>\n  " + Item("1"), file + ":2:"},
      {"no text of this kind", "\x01\x02", file + ":1:1: "},
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
    const std::string run = Run("run").output;
    EXPECT_TRUE(
        run.starts_with(R"({"type":"finished","abnormal":0,"firstAbnormal":-1})"
                        "\n"
                        R"({"type":"record","cells":[-1,-1,-1,-1,-1,-1,-1,-1,-1,-1,-1,-1,0,0,)"))
        << run;
  }
}

TEST_F(ConfigurationTest, ItemsAreOfferedAsTheListHasThem) {
  const struct {
    const char* name;
    std::string text;
    std::vector<std::string> offered;  // id and name
  } cases[] = {
      {"elements before the first item are passed over, all after it are items",
       Root("<Group id=\"4\" name=\"g\" description=\"d\"/>" + Item("1") +
            "<Other id=\"8\" name=\"o\" description=\"d\"/>"),
       {"1n", "8o"}},
      {"the same category twice",
       Root(Item("5", "one") + Item("1") + Item("5", "two")),
       {"5one", "1n", "5two"}},
      {"numbers as the C library reads them",
       Root(Item("12") + Item("-1") + Item(" +7") + Item("6x") + Item("abc") + Item("")),
       {"12n", "-1n", "7n", "6n", "0n", "0n"}},
      {"an item without an attribute is left out",
       Root("<DetectItem name=\"n\" description=\"d\"/><DetectItem id=\"1\" description=\"d\"/>"
            "<DetectItem id=\"1\" name=\"n\"/><DetectItem ID=\"1\" name=\"n\" description=\"d\"/>" +
            Item("8")),
       {"8n"}},
      {"order and number of attributes do not matter, the first of two counts",
       Root("<DetectItem description=\"d\" more=\"m\" name=\"n\" id=\"9\" id=\"1\"/>"),
       {"9n"}},
      {"byte order mark, declaration, comments, texts, a second root",
       "\xEF\xBB\xBF<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<!-- c --><x/>" +
           Root("text" + Item("1") + "<!-- " + Item("5") + " -->text" + Item("6")) +
           Root(Item("8")),
       {"1n", "6n"}},
      {"what is nested in an item is not read",
       Root("<DetectItem id=\"1\" name=\"n\" description=\"d\">" + Item("5") + "</DetectItem>"),
       {"1n"}},
      {"as deep as a list may be", Nested(64), {"1n"}},
      {"texts beyond ASCII", Root(Item("1", "&lt;主板 &#x1F9A3;>")), {"1<主板 🦣>"}},
  };
  for (const auto& items : cases) {
    SCOPED_TRACE(items.name);
    WriteList(items.text);
    std::vector<std::string> offered;
    std::string output = Run("list").output;
    for (std::size_t end; (end = output.find('\n')) != std::string::npos;
         output.erase(0, end + 1)) {
      const std::string line = output.substr(0, end);
      const std::size_t name = line.find(R"(,"name":")");
      const std::size_t description = line.find(R"(","description":"d","caption":")");
      ASSERT_NE(description, std::string::npos) << line;
      offered.push_back(line.substr(6, name - 6) + line.substr(name + 9, description - name - 9));
    }
    EXPECT_EQ(offered, items.offered);
  }
  EXPECT_EQ(Count(Log(), "ERROR"), 0u) << Log();
}

TEST_F(ConfigurationTest, AnUnknownCategoryCountsAsNormalAndLeavesNoMark) {
  WriteList(Root(Item("-1") + Item("12")));
  EXPECT_EQ(Count(Run("list").output, R"("caption":"","deviceSummary":"","deviceDetail":"")"), 2u);
  EXPECT_EQ(Run("info").output, "");
  const std::string run = Run("run").output;
  EXPECT_TRUE(
      run.starts_with(R"({"type":"finished","abnormal":0,"firstAbnormal":-1})"
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
            "</machineType><machineType><type>lynx</type><signList>LYNX 17</signList></machineType>"
            "<machineType><type>Orchid</type><signList>ORCHID 13;opal 14</signList></machineType>"
            "<again><type>Opal</type><signList></signList></again>"
            "<again><signList>OPAL 16</signList></again></machineTypelist>");
  const std::string longest = "TK-" + std::string(60, 'x');
  const struct {
    std::string product;
    std::string version;  // registry
    bool offered;
    const char* shelf = "PowerManagerUIPlugin";
  } cases[] = {
      {"lynx 15", "", true},
      {"lynx 15", "", false, "AppLogUpload"},
      {"LYNX 17", "", false},
      {"LYNX", "", false},
      {"OPAL 14", "", false},
      {"OPAL 16", "", true},
      {"ORCHID 13", "TK-1", false},
      {"Unknown", " \\u0007tk-1.02_A\\r\\n", true},
      {"", "before lX-9", true},
      {"", "1_TK-2", false},
      {"", "TK-1 QF-2", false},
      {"", "TK", false},
      {"", longest, true},
      {"", longest + "x", false},
      {"", "", false},
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
