#pragma once

#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

#include "platform/machine/interface/machine.h"

namespace machine {

/// A machine file that is not as it should be: "<file>: <place>: <reason>".
class UTIL_API MachineFileError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// A machine described by JSON text, see docs/machine-files.md; `name` stands in error messages.
/// Throws MachineFileError.
UTIL_API std::unique_ptr<Machine> ParseMachine(std::string_view json, const std::string& name);

/// As ParseMachine, for a file of at most 4 MiB.
UTIL_API std::unique_ptr<Machine> ReadMachineFile(const std::filesystem::path& file);

}  // namespace machine
