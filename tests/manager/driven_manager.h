#pragma once

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "tests/manager/drive.h"
#include "tests/support/temporary_folder.h"

/// Runs scripts, several on the same data, on the machine that a test sets.
class DrivenManager : public testing::Test {
 protected:
  Drive Run(const std::string& script, const std::vector<std::string>& options = {}) const {
    return RunDrive(machine, folder.path, script, options);
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
