#pragma once

#include <gmock/gmock.h>

#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "common/path_text.h"
#include "tests/support/running_program.h"
#include "tests/support/temporary_folder.h"

/// What a script came to.
struct Drive {
  std::optional<int> exitStatus;
  std::vector<std::string> answers;
  std::string errors;
};

/// The manager with its companion service, driven by scripts, on a machine that a file describes.
class DrivenManager : public testing::Test {
 protected:
  using Options = std::vector<std::string>;

  Drive Run(const std::string& script, const Options& options = {}) const {
    WriteText(folder.path / "script", script);
    std::vector<std::string> words = {APP_DIR "/laptop-manager",
                                      "--headless",
                                      "--machine",
                                      machine,
                                      "--data-dir",
                                      common::PathText(folder.path / "data"),
                                      "--lang",
                                      "ids",
                                      "drive",
                                      common::PathText(folder.path / "script")};
    words.insert(words.end(), options.begin(), options.end());
    std::filesystem::remove(folder.path / "errors");
    RunningProgram program(words, folder.path / "errors");
    std::string output;
    while (program.Read(output)) {
    }
    Drive drive{program.Wait(), {}, {}};
    std::istringstream lines(output);
    for (std::string line; std::getline(lines, line);) {
      if (line.ends_with('\r')) line.pop_back();
      drive.answers.push_back(line);
    }
    drive.errors = ReadText(folder.path / "errors");
    return drive;
  }

  const TemporaryFolder folder;
  std::string machine;  // the file that describes it
};

inline const char* const kOk = R"({"ok":true})";

inline std::string Failed(const std::string& error) {
  return R"({"ok":false,"error":")" + error + "\"}";
}

inline std::string Shows(const std::string& text) {
  return R"({"ok":true,"text":")" + text + "\"}";
}
