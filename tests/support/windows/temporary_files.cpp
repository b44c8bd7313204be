#include "tests/support/temporary_files.h"

#include <windows.h>

namespace {

void Set(const std::filesystem::path& folder) {
  for (const wchar_t* name : {L"TMP", L"TEMP"}) SetEnvironmentVariableW(name, folder.c_str());
}

}  // namespace

TemporaryFilesIn::TemporaryFilesIn(const std::filesystem::path& folder)
    : before(std::filesystem::temp_directory_path()) {
  Set(folder);
}

TemporaryFilesIn::~TemporaryFilesIn() {
  Set(before);
}
