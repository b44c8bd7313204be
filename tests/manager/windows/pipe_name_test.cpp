#include <gmock/gmock.h>

#include "common/path_text.h"
#include "tests/cli/program.h"

namespace {

// The terminal program hands the name on to the service that it starts.
TEST(PipeName, LeadsTheTerminalProgramAndTheServiceToEachOther) {
  const TemporaryFolder folder;
  WriteText(folder.path / "log/old.log", "a line\n");
  const std::string pipe = "\\\\.\\pipe\\" + common::PathText(folder.path.filename());
  const Outcome logs =
      RunProgram({"--json", "--data-dir", common::PathText(folder.path), "logs", "--socket", pipe});
  EXPECT_EQ(logs.exitStatus, 0) << logs.errors;
  EXPECT_THAT(logs.output, testing::HasSubstr("old.log"));
}

}  // namespace
