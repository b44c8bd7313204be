#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>

#include "tests/support/running_program.h"
#include "tests/support/temporary_folder.h"

namespace {

TEST(FullOutput, IsAnErrorThatNamesTheReason) {
  const TemporaryFolder folder;
  WriteText(folder.path / "machine.json", "{}");
  const std::string start = std::string("exec " APP_DIR "/sysdiagnose --machine ") +
                            (folder.path / "machine.json").string() + " --data-dir " +
                            (folder.path / "data").string();
  for (const char* words : {" list", " --json run", " history"}) {
    SCOPED_TRACE(words);
    const std::filesystem::path errors = folder.path / "errors";
    std::filesystem::remove(errors);
    RunningProgram program({"/bin/sh", "-c", start + words + " >/dev/full"}, errors);
    EXPECT_EQ(program.Wait(), 2);
    EXPECT_EQ(ReadText(errors), std::string("sysdiagnose: the output could not be written: ") +
                                    std::strerror(ENOSPC) + "\n");
  }
}

// As with "| head -1": the run goes on to its end and is kept.
TEST(FullOutput, AReaderThatGoesAwayLosesNoRun) {
  const TemporaryFolder folder;
  WriteText(folder.path / "machine.json", "{}");
  const std::string program = std::string(APP_DIR "/sysdiagnose --machine ") +
                              (folder.path / "machine.json").string() + " --data-dir " +
                              (folder.path / "data").string();
  const std::string status = (folder.path / "status").string();
  RunningProgram shell(
      {"/bin/sh", "-c",
       "(" + program + " run; echo $? >" + status + ") | true; " + program + " history --json"},
      folder.path / "errors");
  std::string history;
  while (shell.Read(history)) {
  }
  EXPECT_EQ(shell.Wait(), 0);
  EXPECT_NE(history.find("cells"), std::string::npos) << "the run is not kept";
  EXPECT_EQ(ReadText(status), "2\n");
}

// A machine that a file describes is not this one, whose history stays its own.
TEST(DescribedMachine, KeepsItsRowsApart) {
  const TemporaryFolder folder;
  WriteText(folder.path / "machine.json", "{}");
  const std::string home = (folder.path / "home").string();
  std::filesystem::create_directory(home);
  const std::string start =
      "export HOME=" + home + "; unset XDG_DATA_HOME; " APP_DIR "/sysdiagnose ";
  const std::string file = (folder.path / "machine.json").string();
  RunningProgram shell({"/bin/sh", "-c", start + "--machine " + file + " run display"},
                       folder.path / "errors");
  EXPECT_EQ(shell.Wait(), 0);
  const std::filesystem::path data = folder.path / "home/.local/share/sysdiagnose";
  EXPECT_TRUE(std::filesystem::exists(data / "described/store.db"));
  EXPECT_FALSE(std::filesystem::exists(data / "store.db"));
}

}  // namespace
