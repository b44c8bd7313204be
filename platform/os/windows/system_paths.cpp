#include "platform/os/system_paths.h"

#include <memory>

#include "platform/os/windows/module_file.h"

// After the header that its types come from.
#include <shlobj.h>

namespace os {

namespace fs = std::filesystem;

fs::path ExecutableFile() {
  return ModuleFile(nullptr);
}

fs::path UserDataFolder() {
  wchar_t* found = nullptr;
  const HRESULT result = SHGetKnownFolderPath(FOLDERID_LocalAppData, 0, nullptr, &found);
  const std::unique_ptr<wchar_t, decltype(&CoTaskMemFree)> folder(found, &CoTaskMemFree);
  return SUCCEEDED(result) ? fs::path(folder.get()) / "sysdiagnose" : fs::path();
}

fs::path SystemRoot() {
  return L"c:\\";
}

}  // namespace os
