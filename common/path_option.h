#pragma once

#include <CLI/CLI.hpp>
#include <filesystem>
#include <string>

#include "common/path_text.h"

namespace common {

/// Words that begin with a slash are paths, on every system.
inline void TakeSlashesAsPaths(CLI::App& app) {
  app.allow_windows_style_options(false);
}

/// An option of a program's command line that takes a path, in UTF-8.
inline CLI::Option* AddPathOption(CLI::App& command, const std::string& name,
                                  std::filesystem::path& path, const std::string& description,
                                  const std::string& typeName = "FILE") {
  return command
      .add_option_function<std::string>(
          name, [&path](const std::string& text) { path = TextPath(text); }, description)
      ->type_name(typeName);
}

}  // namespace common
