#include "platform/util/system_registry.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <memory>
#include <string_view>
#include <type_traits>

#include "common/text.h"

namespace util {
namespace {

struct Root {
  std::string_view name;
  HKEY key;
};

const std::array<Root, 5>& Roots() {
  static const std::array<Root, 5> roots = {{
      {"HKEY_CLASSES_ROOT", HKEY_CLASSES_ROOT},
      {"HKEY_CURRENT_USER", HKEY_CURRENT_USER},
      {"HKEY_LOCAL_MACHINE", HKEY_LOCAL_MACHINE},
      {"HKEY_USERS", HKEY_USERS},
      {"HKEY_CURRENT_CONFIG", HKEY_CURRENT_CONFIG},
  }};
  return roots;
}

/// Null for a name that is none.
HKEY RootKey(const std::string& name) {
  const auto root = std::ranges::find(Roots(), name, &Root::name);
  return root == Roots().end() ? nullptr : root->key;
}

struct KeyCloser {
  void operator()(HKEY key) const { RegCloseKey(key); }
};
using Key = std::unique_ptr<std::remove_pointer_t<HKEY>, KeyCloser>;

Key OpenKey(HKEY root, const std::wstring& path, std::uint32_t access) {
  HKEY opened = nullptr;
  const LSTATUS status = RegOpenKeyExW(root, path.c_str(), 0, access | KEY_WOW64_64KEY, &opened);
  return Key(status == ERROR_SUCCESS ? opened : nullptr);
}

Key CreateKey(HKEY root, const std::wstring& path, std::uint32_t access) {
  // Below a key that goes away with the session, as those that describe the hardware do, only keys
  // of that kind can be made.
  for (const DWORD lifetime : {REG_OPTION_NON_VOLATILE, REG_OPTION_VOLATILE}) {
    HKEY created = nullptr;
    const LSTATUS status = RegCreateKeyExW(root, path.c_str(), 0, nullptr, lifetime,
                                           access | KEY_WOW64_64KEY, nullptr, &created, nullptr);
    if (status == ERROR_SUCCESS) return Key(created);
    if (status != ERROR_CHILD_MUST_BE_VOLATILE) break;
  }
  return {};
}

std::optional<std::wstring> ReadText(HKEY key, const std::wstring& name) {
  constexpr DWORD kUsualSize = 256;
  std::wstring text(kUsualSize, L'\0');
  for (;;) {
    DWORD type = REG_NONE;
    auto bytes = static_cast<DWORD>(text.size() * sizeof(wchar_t));
    const LSTATUS status = RegQueryValueExW(key, name.c_str(), nullptr, &type,
                                            reinterpret_cast<BYTE*>(text.data()), &bytes);
    if (status != ERROR_SUCCESS && status != ERROR_MORE_DATA) return std::nullopt;
    if (type != REG_SZ && type != REG_EXPAND_SZ) return std::nullopt;
    text.resize((bytes + 1) / sizeof(wchar_t));
    if (status == ERROR_MORE_DATA) continue;
    text.resize(bytes / sizeof(wchar_t));
    text.resize(std::min(text.size(), text.find(L'\0')));  // the terminator need not be there
    return text;
  }
}

}  // namespace

std::optional<std::wstring> ReadSystemRegistry(const std::string& root, const std::string& key,
                                               const std::string& name, std::uint32_t access) {
  const Key opened = OpenKey(RootKey(root), common::Utf8ToWide(key), access);
  if (!opened) return std::nullopt;
  return ReadText(opened.get(), common::Utf8ToWide(name));
}

bool WriteSystemRegistry(const std::string& root, const std::string& key, const std::string& name,
                         const std::wstring& value, std::uint32_t access) {
  const Key created = CreateKey(RootKey(root), common::Utf8ToWide(key), access);
  if (!created) return false;
  // With its terminator.
  const auto bytes = static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t));
  return RegSetValueExW(created.get(), common::Utf8ToWide(name).c_str(), 0, REG_SZ,
                        reinterpret_cast<const BYTE*>(value.c_str()), bytes) == ERROR_SUCCESS;
}

}  // namespace util
