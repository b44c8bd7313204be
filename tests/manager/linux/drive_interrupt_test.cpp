#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "tests/support/running_program.h"
#include "tests/support/temporary_folder.h"

namespace {

TEST(DriveInterrupt, EndsTheWaitForTheNextCommand) {
  const TemporaryFolder folder;
  const std::string script = (folder.path / "script").string();
  ASSERT_EQ(mkfifo(script.c_str(), 0600), 0);
  const int commands = open(script.c_str(), O_RDWR | O_CLOEXEC);
  ASSERT_EQ(write(commands, "windows\n", 8), 8);
  RunningProgram program(
      {APP_DIR "/laptop-manager", "--headless", "--machine", MACHINE_FILES "healthy.json",
       "--data-dir", (folder.path / "data").string(), "drive", "--simple-text", script},
      folder.path / "errors");
  std::string output;
  while (output.find('\n') == std::string::npos) ASSERT_TRUE(program.Read(output));
  program.Interrupt();
  EXPECT_EQ(program.Wait(), 0) << ReadText(folder.path / "errors");
  close(commands);
}

}  // namespace
