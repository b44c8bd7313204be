#include "tests/manager/drive.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <sstream>

#include "common/path_text.h"
#include "tests/support/running_program.h"
#include "tests/support/temporary_folder.h"

namespace fs = std::filesystem;

namespace {

std::string ReadAll(RunningProgram& program) {
  std::string output;
  while (program.Read(output)) {
  }
  return output;
}

std::vector<std::string> With(std::vector<std::string> words,
                              const std::vector<std::string>& more) {
  words.insert(words.end(), more.begin(), more.end());
  return words;
}

}  // namespace

Drive RunDrive(const std::string& machine, const fs::path& folder, const std::string& script,
               const std::vector<std::string>& options, const std::string& language) {
  WriteText(folder / "script", script);
  fs::remove(folder / "errors");
  RunningProgram program(With({APP_DIR "/laptop-manager", "--headless", "--machine", machine,
                               "--data-dir", common::PathText(folder / "data"), "--lang", language,
                               "drive", common::PathText(folder / "script")},
                              options),
                         folder / "errors");
  Drive drive;
  std::istringstream lines(ReadAll(program));
  for (std::string line; std::getline(lines, line);) {
    if (line.ends_with('\r')) line.pop_back();
    drive.answers.push_back(line);
  }
  drive.exitStatus = program.Wait();
  drive.errors = ReadText(folder / "errors");
  return drive;
}

std::string RunTerminal(const std::vector<std::string>& words, const fs::path& folder) {
  fs::create_directories(folder);
  RunningProgram program(With({APP_DIR "/sysdiagnose", "--lang", "ids", "--json", "--data-dir",
                               common::PathText(folder / "data")},
                              words),
                         folder / "terminal-errors");
  return ReadAll(program);
}

std::vector<std::string> StoredRows(const fs::path& folder) {
  constexpr int kDateColumn = 14;
  const SQLite::Database store(common::PathText(folder / "data/store.db"));
  SQLite::Statement query(store, "SELECT * FROM TABLE_HARDWARE_DIAGNOSE ORDER BY SecondTime DESC");
  std::vector<std::string> rows;
  while (query.executeStep()) {
    std::string& row = rows.emplace_back(query.getColumn(0).getString());
    for (int column = 1; column < kDateColumn; ++column)
      row += " " + query.getColumn(column).getString();
  }
  return rows;
}
