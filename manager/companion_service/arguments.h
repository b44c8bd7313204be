#pragma once

#include <filesystem>

#include "startup/options.h"

namespace companion {

struct Arguments : startup::Options {
  std::filesystem::path socket;  // empty: the user's own
};

/// Throws startup::UsageError. Returns false when help was asked for and printed.
bool ParseArguments(int argc, const char* const* argv, Arguments& arguments);

}  // namespace companion
