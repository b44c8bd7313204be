#include "tests/plugins_manager/exported_names.h"

#include <windows.h>

#include "common/text.h"

namespace {

// A place in the mapped file.
template <typename Type>
const Type* At(HMODULE module, DWORD offset) {
  return reinterpret_cast<const Type*>(reinterpret_cast<const char*>(module) + offset);
}

std::vector<std::string> NamesIn(HMODULE module) {
  const auto* dos = At<IMAGE_DOS_HEADER>(module, 0);
  const auto* headers = At<IMAGE_NT_HEADERS64>(module, static_cast<DWORD>(dos->e_lfanew));
  const auto& table = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_EXPORT];
  const auto* exports = At<IMAGE_EXPORT_DIRECTORY>(module, table.VirtualAddress);
  const auto* offsets = At<DWORD>(module, exports->AddressOfNames);
  std::vector<std::string> names;
  for (DWORD i = 0; i < exports->NumberOfNames; ++i)
    names.emplace_back(At<char>(module, offsets[i]));
  // What is exported without a name shows too.
  for (DWORD i = exports->NumberOfNames; i < exports->NumberOfFunctions; ++i)
    names.push_back("#" + std::to_string(i));
  return names;
}

}  // namespace

std::vector<std::string> ExportedNames(const char* library) {
  HMODULE module =
      LoadLibraryExW(common::Utf8ToWide(library).c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
  if (module == nullptr) return {};
  std::vector<std::string> names = NamesIn(module);
  FreeLibrary(module);
  return names;
}
