#pragma once

#include <string>

#include "platform/util/log_file.h"
#include "tests/support/temporary_folder.h"

// The log of the test program, from the first use on.
class TestLog {
 public:
  static TestLog& Instance() {
    static TestLog log;
    return log;
  }

  // What was logged since the last call.
  std::string Take() {
    const std::string text = ReadText(folder.path / "sysdiagnose.log");
    std::string added = text.substr(taken);
    taken = text.size();
    return added;
  }

 private:
  TestLog() { util::StartLogFile(folder.path); }

  TemporaryFolder folder;
  std::size_t taken = 0;
};
