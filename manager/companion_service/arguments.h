#pragma once

#include <filesystem>

namespace companion {

struct Arguments {
  std::filesystem::path dataFolder;
  std::filesystem::path machineFile;
  std::filesystem::path socket;
};

/// False when help was asked for and printed, or after an error was printed; `exitStatus` is then
/// set.
bool ParseArguments(int argc, const char* const* argv, Arguments& arguments, int& exitStatus);

}  // namespace companion
