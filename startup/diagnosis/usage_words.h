#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace startup {

/// Has the headings of help in the language in force. Before anything is added to the parser.
void SpeakInHelp(CLI::App& app);

/// Says in the language in force what is wrong with a command line.
std::string UsageWords(const CLI::App& app, const CLI::ParseError& error);

}  // namespace startup
