#pragma once

#include <filesystem>

namespace startup {

/// Where a program's things lie. What is empty stays as it is by default.
struct Options {
  std::filesystem::path machineFile;  // diagnose the machine that it describes
  std::filesystem::path dataFolder;
  std::filesystem::path appFolder;  // the installation whose configuration is read
  std::filesystem::path systemRoot;
  bool externalDisks = false;  // plugged-in disks count too
};

/// Puts folders and machine in force and starts the log. Throws std::runtime_error saying which of
/// them cannot be used and why.
void PutInForce(const Options& options);

}  // namespace startup
