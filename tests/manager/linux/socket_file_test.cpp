#include <gmock/gmock.h>

#include "common/path_text.h"
#include "tests/cli/program.h"

namespace {

TEST(SocketFile, ThatIsSomethingElseIsLeftAloneAndNamed) {
  const TemporaryFolder folder;
  const std::filesystem::path file = folder.path / "notes.txt";
  WriteText(file, "mine");
  for (const char* command : {"serve", "logs"}) {
    const Outcome outcome = RunProgram({"--data-dir", common::PathText(folder.path / "data"),
                                        command, "--socket", common::PathText(file)});
    EXPECT_EQ(outcome.exitStatus, 2) << command;
    EXPECT_EQ(outcome.output, "");
    EXPECT_EQ(outcome.errors, "sysdiagnose: " + common::PathText(file) +
                                  ": no broker can serve there: what is there is not a socket\n");
    EXPECT_EQ(ReadText(file), "mine");
  }
}

}  // namespace
