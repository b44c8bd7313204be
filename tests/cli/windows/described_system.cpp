#include "tests/cli/described_system.h"

#include "tests/support/temporary_folder.h"

// The rest is asked of the system itself.
std::vector<std::string> DescribeSystem(const std::filesystem::path& root) {
  WriteText(root / "recovery/OEM/version.txt", "TK-9.9_X");
  return {"TK-9.9_X"};
}
