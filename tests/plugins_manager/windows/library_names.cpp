#include "tests/plugins_manager/library_names.h"

#include <windows.h>

#include "common/path_text.h"
#include "common/text.h"

namespace {

// A place in the mapped file.
template <typename Type>
const Type* At(HMODULE module, DWORD offset) {
  return reinterpret_cast<const Type*>(reinterpret_cast<const char*>(module) + offset);
}

// The table of that kind in a mapped module.
template <typename Table>
const Table* TableOf(HMODULE module, int kind) {
  const auto* dos = At<IMAGE_DOS_HEADER>(module, 0);
  const auto* headers = At<IMAGE_NT_HEADERS64>(module, static_cast<DWORD>(dos->e_lfanew));
  return At<Table>(module, headers->OptionalHeader.DataDirectory[kind].VirtualAddress);
}

std::vector<std::string> ExportsOf(HMODULE module) {
  const auto* exports = TableOf<IMAGE_EXPORT_DIRECTORY>(module, IMAGE_DIRECTORY_ENTRY_EXPORT);
  const auto* offsets = At<DWORD>(module, exports->AddressOfNames);
  std::vector<std::string> names;
  for (DWORD i = 0; i < exports->NumberOfNames; ++i)
    names.emplace_back(At<char>(module, offsets[i]));
  // What is exported without a name shows too.
  for (DWORD i = exports->NumberOfNames; i < exports->NumberOfFunctions; ++i)
    names.push_back("#" + std::to_string(i));
  return names;
}

std::vector<std::string> ImportsOf(HMODULE module, const std::string& library) {
  std::vector<std::string> names;
  for (const auto* imports = TableOf<IMAGE_IMPORT_DESCRIPTOR>(module, IMAGE_DIRECTORY_ENTRY_IMPORT);
       imports->Name != 0; ++imports) {
    if (library != At<char>(module, imports->Name)) continue;
    for (const auto* name = At<ULONGLONG>(module, imports->OriginalFirstThunk); *name != 0; ++name)
      names.emplace_back(At<IMAGE_IMPORT_BY_NAME>(module, static_cast<DWORD>(*name))->Name);
  }
  return names;
}

// The names that `list` finds in a module while it is loaded.
template <typename List>
std::vector<std::string> NamesIn(const char* file, List list) {
  HMODULE module =
      LoadLibraryExW(common::Utf8ToWide(file).c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
  if (module == nullptr) return {};
  std::vector<std::string> names = list(module);
  FreeLibrary(module);
  return names;
}

}  // namespace

std::vector<std::string> ExportedNames(const char* library) {
  return NamesIn(library, ExportsOf);
}

std::vector<std::string> ImportedNames(const char* module, const char* library) {
  const std::string name = common::TextPath(library).filename().string();
  return NamesIn(module, [&name](HMODULE loaded) { return ImportsOf(loaded, name); });
}
