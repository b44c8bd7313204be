#include <gmock/gmock.h>

#include <cstdlib>

#include "tests/cli/program.h"
#include "tests/support/temporary_folder.h"

namespace {

// An environment variable of this process and of those that it starts.
class Variable {
 public:
  Variable(const char* variable, const char* value) : name(variable) {
    if (const char* set = std::getenv(name)) before = set;
    if (value != nullptr)
      setenv(name, value, 1);
    else
      unsetenv(name);
  }
  Variable(const Variable&) = delete;
  Variable& operator=(const Variable&) = delete;
  ~Variable() {
    if (before)
      setenv(name, before->c_str(), 1);
    else
      unsetenv(name);
  }

 private:
  const char* name;
  std::optional<std::string> before;
};

TEST(Language, IsThatOfTheUsersLocaleUnlessTheCommandLineNamesOne) {
  const std::string chinese = "处理器";
  const std::string english = "Processor";
  const struct {
    const char* all;
    const char* messages;
    const char* lang;
    std::vector<std::string> option;
    std::string caption;
  } cases[] = {
      {nullptr, nullptr, "zh_CN.UTF-8", {}, chinese},
      {nullptr, "zh_CN", "en_US.UTF-8", {}, chinese},
      {"zh_CN.utf8", "en_US", "en_US.UTF-8", {}, chinese},
      {"en_GB.UTF-8", "zh_CN", "zh_CN.UTF-8", {}, english},
      {"", "", "zh_TW.UTF-8@radical", {}, chinese},  // the same language elsewhere
      {nullptr, nullptr, "zha_CN", {}, english},     // another language
      {nullptr, nullptr, "de_DE.UTF-8", {}, english},
      {"C", nullptr, "zh_CN.UTF-8", {}, english},
      {nullptr, nullptr, nullptr, {}, english},
      {nullptr, nullptr, "zh_CN.UTF-8", {"--lang", "en-US"}, english},
  };
  const TemporaryFolder folder;
  WriteText(folder.path / "machine.json", "{}");
  for (const auto& user : cases) {
    const Variable all("LC_ALL", user.all);
    const Variable messages("LC_MESSAGES", user.messages);
    const Variable lang("LANG", user.lang);
    std::vector<std::string> words{"--machine", (folder.path / "machine.json").string(),
                                   "--data-dir", (folder.path / "data").string(), "list"};
    words.insert(words.end(), user.option.begin(), user.option.end());
    EXPECT_THAT(RunProgram(words).output, testing::HasSubstr(user.caption))
        << (user.lang == nullptr ? "none" : user.lang);
  }
}

// Whether the command line is right or not, and before anything is known of it.
TEST(Language, OfHelpAndErrorsIsThatOfTheCommandLine) {
  const std::vector<std::string> commands{"",     "list",    "info",   "run",   "check",
                                          "scan", "history", "record", "serve", "logs"};
  for (const std::string& command : commands) {
    std::vector<std::string> words{"--lang=zh-CN", "--help"};
    if (!command.empty()) words.insert(words.begin(), command);
    const std::string help = RunProgram(words).output;
    EXPECT_THAT(help, testing::HasSubstr("显示本帮助并退出")) << command;
    for (const char* english : {"Options", "OPTIONS", "Usage", "Positionals", "REQUIRED", "Needs",
                                "Excludes", "Subcommands", "Exit status", "IDS_", " the "})
      EXPECT_THAT(help, testing::Not(testing::HasSubstr(english))) << command;
  }
  const struct {
    std::vector<std::string> words;
    std::string said;
  } faults[] = {
      {{}, "需要一个命令；请参阅 sysdiagnose --help"},
      {{"fly"}, "未知的命令或选项“fly”；请参阅 sysdiagnose --help"},
      {{"record"}, "缺少 file；请参阅 sysdiagnose --help"},
      {{"list", "--machine"}, "--machine 需要一个值；请参阅 sysdiagnose --help"},
      {{"list", "--lang", "zh-CN"}, "--lang 只能给出一次；请参阅 sysdiagnose --help"},
      {{"list", "--json=x"}, "未知的值：--json = x；请参阅 sysdiagnose --help"},
      {{"history", "--count", "x"},
       "--count: “x”不是 1 到 100000 之间的数；请参阅 sysdiagnose --help"},
      {{"history", "--count", "1", "--all"},
       "--count 不能与 --all 同时使用；请参阅 sysdiagnose --help"},
      {{"run", "--yes"}, "--yes 需要 --repair；请参阅 sysdiagnose --help"},
      {{"run", "disk/x"}, "未知的项目“disk/x”；该类别有：CheckHhdSmartResult, CheckSsdSmartResult"},
  };
  for (const auto& fault : faults) {
    std::vector<std::string> words{"--lang", "zh-CN"};
    words.insert(words.end(), fault.words.begin(), fault.words.end());
    EXPECT_EQ(RunProgram(words).errors, "sysdiagnose: " + fault.said + "\n");
  }
}

}  // namespace
