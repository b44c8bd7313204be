#pragma once

#include <string>

#include "platform/duilib/culture/culture.h"
#include "platform/machine/current.h"
#include "platform/machine/machine_files/machine_file.h"
#include "platform/os/paths.h"
#include "tests/support/temporary_folder.h"

/// A machine from JSON, an empty data folder, an empty installation folder and an empty system
/// root, all in force while it lives, and texts that are their own ids.
class InForce {
 public:
  explicit InForce(const std::string& machineJson = "{}") {
    machine::SetCurrent(machine::ParseMachine(machineJson, "machine"));
    os::SetDataFolder(folder.path / "data");
    os::SetConfigurationRoot(folder.path / "app");
    os::SetSystemRoot(folder.path / "root");
    DuiLib::UICulture::GetInstance()->SetLanguage("ids", APP_DIR "/res");
  }
  ~InForce() { machine::SetCurrent(nullptr); }
  InForce(const InForce&) = delete;
  InForce& operator=(const InForce&) = delete;

  void WriteConfig(const std::string& name, const std::string& xml) const {
    WriteText(folder.path / "app/config" / name, xml);
  }
  void WriteOemVersion(const std::string& text) const {
    WriteText(folder.path / "root/recovery/OEM/version.txt", text);
  }

  TemporaryFolder folder;
};
