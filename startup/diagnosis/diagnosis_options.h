#pragma once

#include <functional>
#include <string>

#include "startup/options.h"

namespace CLI {
class App;
}  // namespace CLI

namespace startup {

struct DiagnosisOptions : Options {
  std::string language;  // empty: the user's
  bool capture = false;
};

/// The options that all programs share which diagnose, with help in the language in force.
/// `options` lives as long as the parser.
void AddDiagnosisOptions(CLI::App& app, DiagnosisOptions& options);

/// Puts the language in force that the command line names, or the user's where that is not known,
/// so that help and errors of usage come in it. Before the command line is parsed.
void SpeakAsTheCommandLineAsks(int argc, const char* const* argv);

/// Puts folders, machine and language in force and starts log and capture. `remembered` gives the
/// language where none was named, empty for none; it is called when the data folder is in force.
/// Returns the language in force. Throws std::runtime_error saying which of them cannot be used and
/// why.
std::string PutDiagnosisInForce(const DiagnosisOptions& options,
                                const std::function<std::string()>& remembered = {});

}  // namespace startup
