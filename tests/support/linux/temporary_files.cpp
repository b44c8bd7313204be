#include "tests/support/temporary_files.h"

#include <cstdlib>

TemporaryFilesIn::TemporaryFilesIn(const std::filesystem::path& folder)
    : before(std::filesystem::temp_directory_path()) {
  setenv("TMPDIR", folder.c_str(), 1);
}

TemporaryFilesIn::~TemporaryFilesIn() {
  setenv("TMPDIR", before.c_str(), 1);
}
