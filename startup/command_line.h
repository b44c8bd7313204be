#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace startup {

/// The first word that means nothing to a program; empty if each means something.
std::string UnknownWord(const CLI::App& app);

/// Says in a line what is wrong with a command line.
using UsageSpeaker = std::string (*)(const CLI::App& app, const CLI::ParseError& error);

std::string EnglishUsageWords(const CLI::App& app, const CLI::ParseError& error);

/// Parses a program's command line. Throws UsageError. Returns false when help or the version was
/// asked for and printed.
bool Parse(CLI::App& app, int argc, const char* const* argv,
           UsageSpeaker words = &EnglishUsageWords);

}  // namespace startup
