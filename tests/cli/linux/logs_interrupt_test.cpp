#include <gtest/gtest.h>

#include <csignal>
#include <string>
#include <thread>

#include "common/path_text.h"
#include "tests/cli/program.h"
#include "tests/support/temporary_folder.h"

namespace {

namespace fs = std::filesystem;

// An installation whose companion service writes down its process and then says nothing.
void InstallWithAMuteService(const fs::path& installation, const fs::path& started) {
  fs::create_directories(installation);
  fs::copy(APP_DIR, installation, fs::copy_options::recursive);
  const fs::path service = installation / "companion-service";
  fs::remove(service);
  WriteText(service, "#!/bin/sh\necho $$ >" + started.string() + ".new\nmv " + started.string() +
                         ".new " + started.string() + "\nexec sleep 600\n");
  fs::permissions(service, fs::perms::owner_all);
}

TEST(LogsInterrupt, EndsTheWaitForAMuteServiceAndTheServiceToo) {
  const TemporaryFolder folder;
  const fs::path started = folder.path / "started";
  InstallWithAMuteService(folder.path / "app", started);
  RunningProgram program(
      {(folder.path / "app/sysdiagnose").string(), "--data-dir", (folder.path / "data").string(),
       "logs", "--upload", "--socket", (folder.path / "socket").string()},
      folder.path / "errors");
  while (!fs::exists(started) && !program.HasEnded()) std::this_thread::yield();
  program.Interrupt();
  EXPECT_EQ(program.Wait(), 3) << ReadText(folder.path / "errors");
  EXPECT_EQ(ReadText(folder.path / "errors"), "");
  EXPECT_EQ(kill(std::stoi(ReadText(started)), 0), -1) << "the service lives on";
}

}  // namespace
