#pragma once

#include <CLI/CLI.hpp>

namespace startup {

/// Parses a program's command line. Throws UsageError. Returns false when help or the version was
/// asked for and printed.
bool Parse(CLI::App& app, int argc, const char* const* argv);

}  // namespace startup
