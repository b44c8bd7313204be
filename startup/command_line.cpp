#include "startup/command_line.h"

#include <vector>

#include "startup/usage_error.h"

namespace startup {

std::string UnknownWord(const CLI::App& app) {
  const std::vector<std::string> unknown = app.remaining(true);
  return unknown.empty() ? std::string() : unknown.front();
}

std::string EnglishUsageWords(const CLI::App& app, const CLI::ParseError& error) {
  const std::string unknown = UnknownWord(app);
  return (unknown.empty() ? std::string(error.what())
                          : "unknown command or option \"" + unknown + '"') +
         "; see " + app.get_name() + " --help";
}

bool Parse(CLI::App& app, int argc, const char* const* argv, UsageSpeaker words) {
  try {
    app.parse(argc, argv);
    return true;
  } catch (const CLI::Success& help) {
    app.exit(help);
    return false;
  } catch (const CLI::ParseError& error) {
    throw UsageError(words(app, error));
  }
}

}  // namespace startup
