#include "platform/os/module.h"

#include <string>

#include "common/text.h"
#include "platform/os/module_pin.h"
#include "platform/os/paths.h"
#include "platform/os/windows/handle.h"
#include "platform/os/windows/module_file.h"

namespace os {
namespace {

// The loader counts a use of the module unless `flags` say otherwise.
HMODULE HolderOf(const void* address, DWORD flags) {
  HMODULE module = nullptr;
  GetModuleHandleExW(flags | GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                     static_cast<const wchar_t*>(address), &module);
  return module;
}

bool IsProgram(HMODULE module) {
  return module == GetModuleHandleW(nullptr);
}

}  // namespace

ModuleHandle FindLoadedModule(const char* name) {
  return GetModuleHandleA(name);
}

std::filesystem::path LibraryFile(const std::filesystem::path& name) {
  return (InstallationFolder() / name).make_preferred();
}

// By full path: a bare name would also be looked for in the current folder.
ModuleHandle LoadModule(const std::filesystem::path& name) {
  return LoadLibraryExW(LibraryFile(name).c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
}

void ReleaseModule(ModuleHandle module) {
  if (module != nullptr) FreeLibrary(static_cast<HMODULE>(module));
}

void* FindProcedure(ModuleHandle module, const char* name) {
  if (module == nullptr) return nullptr;
  return reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(module), name));
}

ModuleHandle ModuleOfAddress(const void* address) {
  return HolderOf(address, GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT);
}

std::string ModuleFileOfAddress(const void* address) {
  HMODULE module = HolderOf(address, GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT);
  if (module == nullptr || IsProgram(module)) return {};
  return common::WideToUtf8(ModuleFile(module).native());
}

ModulePin ModulePin::OfAddress(const void* address) {
  ModulePin pin(HolderOf(address, 0));
  return IsProgram(static_cast<HMODULE>(pin.module)) ? ModulePin() : std::move(pin);
}

ModulePin ModulePin::OfFile(const std::string& file, bool& loaded) {
  loaded = true;
  if (file.empty()) return {};
  HMODULE module = nullptr;
  GetModuleHandleExW(0, common::Utf8ToWide(file).c_str(), &module);
  loaded = module != nullptr;
  return ModulePin(module);
}

}  // namespace os
