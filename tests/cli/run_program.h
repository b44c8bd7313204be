#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include "platform/os/process.h"
#include "tests/support/temporary_folder.h"

// The terminal program with a data folder and an empty system root of its own. A status of -1 is a
// program that was killed or did not start.
class Program {
 public:
  os::ProcessResult Run(std::vector<std::string> arguments) const {
    static const std::string program = std::string(APP_DIR) + "/sysdiagnose";
    std::vector<std::string> command{program,      "--lang",        language,    "--data-dir",
                                     Path("data"), "--system-root", Path("root")};
    command.insert(command.end(), arguments.begin(), arguments.end());
    return os::RunProcess(command, std::chrono::minutes(5)).value_or(os::ProcessResult{-1, {}});
  }

  os::ProcessResult RunOn(const std::string& machineFile,
                          std::vector<std::string> arguments) const {
    arguments.insert(arguments.begin(), {"--machine", machineFile});
    return Run(std::move(arguments));
  }

  std::string Path(const std::string& name) const { return (folder.path / name).string(); }

  // Writes a machine file and returns its path.
  std::string Machine(const std::string& json) const {
    WriteText(folder.path / "machine.json", json);
    return Path("machine.json");
  }

  std::string language = "en-US";
  TemporaryFolder folder;
};
