#pragma once

#include <filesystem>

#include "startup/diagnosis/diagnosis_options.h"

namespace manager {

/// What a manager is started with, whatever shows its window.
struct ManagerOptions : startup::DiagnosisOptions {
  std::filesystem::path plugin;  // empty: that of the installation
  bool allowRestart = false;     // of the computer
};

}  // namespace manager
