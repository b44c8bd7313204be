#include <gmock/gmock.h>

#include <filesystem>

#include "common/path_text.h"
#include "tests/cli/program.h"
#include "tests/support/temporary_files.h"
#include "tests/support/temporary_folder.h"

namespace {

namespace fs = std::filesystem;
using common::PathText;
using testing::HasSubstr;

// A folder whose path has blanks, other alphabets and more than 260 characters.
fs::path LongFolder(const fs::path& folder) {
  fs::path path = folder / u8"用户 Дмитрий" / "with blanks";
  for (int i = 0; i < 6; ++i) path /= std::u8string(20, u8'a') + u8"数据文件夹";
  fs::create_directories(path);
  return path;
}

void CopyInstallation(const fs::path& to) {
  fs::create_directories(to);
  fs::copy(APP_DIR, to, fs::copy_options::recursive);
}

TEST(PathNames, DataMachineFileRecordingAndReportMayLieAnywhere) {
  const TemporaryFolder folder;
  const fs::path place = LongFolder(folder.path);
  ASSERT_GT(PathText(place).size(), 260u);
  const TemporaryFilesIn there(place);
  const fs::path machine = place / u8"机器.json";
  WriteText(machine, R"({"info": {"CCpu": {"GetCpuName": "Sample CPU"}}})");
  const auto run = [&](std::vector<std::string> words) {
    words.insert(words.begin(), {"--lang", "ids", "--machine", PathText(machine), "--data-dir",
                                 PathText(place / u8"资料")});
    const Outcome outcome = RunProgram(words);
    EXPECT_EQ(outcome.exitStatus, 0) << outcome.errors;
    return outcome.output;
  };

  run({"run", "processor", "--report", PathText(place / u8"报告.html")});
  EXPECT_THAT(ReadText(place / u8"报告.html"), HasSubstr("Sample CPU"));
  EXPECT_THAT(run({"history", "--json"}), HasSubstr("{\"cells\":[0,"));
  EXPECT_THAT(run({"record", PathText(place / u8"录制.json")}), HasSubstr(PathText(u8"录制.json")));
  EXPECT_THAT(ReadText(place / u8"录制.json"), HasSubstr("Sample CPU"));
  for (const char* made : {"store.db", "events.jsonl", "log/sysdiagnose.log"})
    EXPECT_TRUE(fs::exists(place / u8"资料" / made)) << made;
  EXPECT_THAT(run({"logs", "--upload", "--socket", PathText(folder.path / u8"插座")}),
              HasSubstr(PathText(fs::path(u8"资料") / "outbox")));
}

TEST(PathNames, TheInstallationMayLieInAFolderOfAnyName) {
  const TemporaryFolder folder;
  const fs::path installation = folder.path / u8"笔记本 管家";
  CopyInstallation(installation);
  RunningProgram program({PathText(installation / "sysdiagnose"), "--data-dir",
                          PathText(folder.path / "data"), "--lang", "zh-CN", "list", "--json"},
                         folder.path / "errors");
  std::string output;
  while (program.Read(output)) {
  }
  EXPECT_EQ(program.Wait(), 0) << ReadText(folder.path / "errors");
  EXPECT_THAT(output, HasSubstr("处理器"));
}

}  // namespace
