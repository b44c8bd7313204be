#include "startup/command_line.h"

#include <string>
#include <vector>

#include "startup/usage_error.h"

namespace startup {

bool Parse(CLI::App& app, int argc, const char* const* argv) {
  try {
    app.parse(argc, argv);
    return true;
  } catch (const CLI::Success& help) {
    app.exit(help);
    return false;
  } catch (const CLI::ParseError& error) {
    const std::vector<std::string> unknown = app.remaining(true);
    throw UsageError((unknown.empty() ? std::string(error.what())
                                      : "unknown command or option \"" + unknown.front() + '"') +
                     "; see " + app.get_name() + " --help");
  }
}

}  // namespace startup
