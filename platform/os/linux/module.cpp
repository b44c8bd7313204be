#include "platform/os/module.h"

#include <dlfcn.h>
#include <link.h>

#include <string>

#include "platform/os/module_pin.h"
#include "platform/os/paths.h"

namespace os {
namespace {

// "Name.dll" lies in "libName.so"; other names stand as they are.
std::string FileName(std::string name) {
  constexpr std::string_view kEnding = ".dll";
  if (name.find('/') != std::string::npos || !name.ends_with(kEnding)) return name;
  name.resize(name.size() - kEnding.size());
  return "lib" + name + ".so";
}

// The loader's record of the module at an address; null when no module holds it.
const link_map* RecordOfAddress(const void* address) {
  Dl_info info{};
  link_map* record = nullptr;
  if (dladdr1(address, &info, reinterpret_cast<void**>(&record), RTLD_DL_LINKMAP) == 0)
    return nullptr;
  return record;
}

}  // namespace

ModuleHandle FindLoadedModule(const char* name) {
  void* module = dlopen(FileName(name).c_str(), RTLD_NOLOAD | RTLD_LAZY);
  if (module != nullptr) dlclose(module);
  return module;
}

std::filesystem::path LibraryFile(const std::filesystem::path& name) {
  return InstallationFolder() / FileName(name.string());
}

// By full path: the loader's own search depends on who is seen as its caller.
ModuleHandle LoadModule(const std::filesystem::path& name) {
  return dlopen(LibraryFile(name).c_str(), RTLD_NOW | RTLD_LOCAL);
}

void ReleaseModule(ModuleHandle module) {
  if (module != nullptr) dlclose(module);
}

void* FindProcedure(ModuleHandle module, const char* name) {
  return module == nullptr ? nullptr : dlsym(module, name);
}

// A library that came in with the program can be searched for procedures only once it was opened.
ModuleHandle ModuleOfAddress(const void* address) {
  const link_map* record = RecordOfAddress(address);
  if (record == nullptr) return nullptr;
  const char* const file = *record->l_name == '\0' ? nullptr : record->l_name;
  void* module = dlopen(file, RTLD_NOLOAD | RTLD_LAZY);
  if (module != nullptr) dlclose(module);
  return module;
}

std::string ModuleFileOfAddress(const void* address) {
  const link_map* record = RecordOfAddress(address);
  return record == nullptr ? std::string() : record->l_name;
}

ModulePin ModulePin::OfAddress(const void* address) {
  bool loaded = false;
  return OfFile(ModuleFileOfAddress(address), loaded);
}

ModulePin ModulePin::OfFile(const std::string& file, bool& loaded) {
  loaded = true;
  if (file.empty()) return {};
  ModuleHandle module = dlopen(file.c_str(), RTLD_NOLOAD | RTLD_LAZY);
  loaded = module != nullptr;
  return ModulePin(module);
}

}  // namespace os
