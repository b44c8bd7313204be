#include "platform/os/windows/module_file.h"

#include <string>

namespace os {
namespace {

constexpr std::size_t kLongestPath = 32768;

}  // namespace

std::filesystem::path ModuleFile(HMODULE module) {
  for (std::wstring buffer(MAX_PATH, L'\0'); buffer.size() <= kLongestPath;
       buffer.resize(2 * buffer.size())) {
    const DWORD length =
        GetModuleFileNameW(module, buffer.data(), static_cast<DWORD>(buffer.size()));
    if (length < buffer.size()) return buffer.substr(0, length);
  }
  return {};
}

}  // namespace os
