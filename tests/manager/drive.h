#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

/// What the driven manager answered, a line each, and how it ended.
struct Drive {
  std::optional<int> exitStatus;
  std::vector<std::string> answers;
  std::string errors;
};

/// The manager with its companion service, on the machine that a file describes, with its data in
/// `folder`. Without other options texts are measured by the simple rule.
Drive RunDrive(const std::string& machine, const std::filesystem::path& folder,
               const std::string& script,
               const std::vector<std::string>& options = {"--simple-text"},
               const std::string& language = "ids");

/// The output of the terminal program with the same data; one JSON object a line.
std::string RunTerminal(const std::vector<std::string>& words, const std::filesystem::path& folder);

/// The rows of the history that is stored there, the newest first, without dates: the results and
/// both counts with blanks between.
std::vector<std::string> StoredRows(const std::filesystem::path& folder);
