#include "platform/util/system_registry.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <string_view>

#include "platform/machine/current.h"
#include "platform/os/paths.h"
#include "platform/util/registry.h"
#include "tests/support/fake_machine.h"
#include "tests/support/temporary_folder.h"

namespace {

constexpr auto kAccess = DE::Registry::kAllAccess;
const std::string kRoot = "HKEY_CURRENT_USER";

/// A key of the test's own below the user's software, and all below it, gone with the object.
class OwnKey {
 public:
  explicit OwnKey(DWORD lifetime = REG_OPTION_NON_VOLATILE) {
    RegCreateKeyExW(HKEY_CURRENT_USER, wide.c_str(), 0, nullptr, lifetime, KEY_ALL_ACCESS, nullptr,
                    &opened, nullptr);
  }
  ~OwnKey() {
    RegCloseKey(opened);
    RegDeleteTreeW(HKEY_CURRENT_USER, wide.c_str());
  }
  OwnKey(const OwnKey&) = delete;
  OwnKey& operator=(const OwnKey&) = delete;

  void Set(const wchar_t* name, DWORD type, const void* bytes, std::size_t size) const {
    RegSetValueExW(opened, name, 0, type, static_cast<const BYTE*>(bytes),
                   static_cast<DWORD>(size));
  }
  void SetText(const wchar_t* name, std::wstring_view text, DWORD type = REG_SZ) const {
    Set(name, type, text.data(), text.size() * sizeof(wchar_t));
  }
  std::optional<std::wstring> Read(const std::string& name, std::uint32_t access = kAccess) const {
    return util::ReadSystemRegistry(kRoot, path, name, access);
  }

  const std::string path = "Software\\sysdiagnose-test-" + std::to_string(GetCurrentProcessId());
  const std::wstring wide = {path.begin(), path.end()};

 private:
  HKEY opened = nullptr;
};

TEST(SystemRegistry, ReadsTextsAsTheyAreWrittenAndNothingElse) {
  const OwnKey key;
  using namespace std::string_view_literals;
  const std::wstring huge(100'000, L'x');
  key.SetText(L"", L"default\0"sv);
  key.SetText(L"\u7248\u672c", L"\u00fc \U0001F4BB\0"sv);
  key.SetText(L"open end", L"abc");
  key.SetText(L"two ends", L"abc\0\0"sv);
  key.SetText(L"variable", L"%SystemRoot%\\x\0"sv, REG_EXPAND_SZ);
  key.SetText(L"huge", huge);
  key.Set(L"empty", REG_SZ, nullptr, 0);
  key.Set(L"odd", REG_SZ, L"ab", 3);
  key.Set(L"number", REG_DWORD, L"ab", 4);
  key.SetText(L"list", L"a\0b\0\0"sv, REG_MULTI_SZ);

  EXPECT_EQ(key.Read(""), L"default");
  EXPECT_EQ(key.Read("\xe7\x89\x88\xe6\x9c\xac"), L"\u00fc \U0001F4BB");
  EXPECT_EQ(key.Read("open end"), L"abc");
  EXPECT_EQ(key.Read("two ends"), L"abc");
  EXPECT_EQ(key.Read("variable"), L"%SystemRoot%\\x");
  EXPECT_EQ(key.Read("huge"), huge);
  EXPECT_EQ(key.Read("empty"), L"");
  EXPECT_EQ(key.Read("odd"), L"a");
  for (const char* name : {"number", "list", "missing"}) EXPECT_FALSE(key.Read(name)) << name;
}

TEST(SystemRegistry, WritesIntoKeysThatItMakes) {
  for (const DWORD lifetime : {REG_OPTION_NON_VOLATILE, REG_OPTION_VOLATILE}) {
    const OwnKey key(lifetime);
    const std::string below = key.path + "\\a\\\xe7\x89\x88";
    EXPECT_FALSE(util::ReadSystemRegistry(kRoot, below, "Version", kAccess));
    EXPECT_TRUE(util::WriteSystemRegistry(kRoot, below, "Version", L"TK-1 \u7248", kAccess));
    EXPECT_TRUE(util::WriteSystemRegistry(kRoot, below, "Version", L"TK-2", kAccess));
    EXPECT_EQ(util::ReadSystemRegistry(kRoot, below, "Version", kAccess), L"TK-2");

    wchar_t text[8];
    DWORD size = sizeof text;
    EXPECT_EQ(RegGetValueW(HKEY_CURRENT_USER, (key.wide + L"\\a\\\u7248").c_str(), L"Version",
                           RRF_RT_REG_SZ, nullptr, text, &size),
              ERROR_SUCCESS);
    EXPECT_EQ(size, 5 * sizeof(wchar_t)) << "the end counts";
  }
}

TEST(SystemRegistry, AsksForNoMoreThanItsAccess) {
  const OwnKey key;
  key.SetText(L"Name", L"old");
  EXPECT_EQ(key.Read("Name", KEY_READ), L"old");
  EXPECT_FALSE(key.Read("Name", KEY_WRITE));
  EXPECT_FALSE(util::WriteSystemRegistry(kRoot, key.path, "Name", L"new", KEY_READ));
  EXPECT_EQ(key.Read("Name"), L"old");
  EXPECT_TRUE(util::WriteSystemRegistry(kRoot, key.path, "Name", L"new", KEY_SET_VALUE));
  EXPECT_EQ(key.Read("Name"), L"new");
}

TEST(SystemRegistry, KnowsNoOtherRoots) {
  EXPECT_FALSE(util::ReadSystemRegistry("HKEY_ELSEWHERE", "Software", "", kAccess));
  EXPECT_FALSE(util::WriteSystemRegistry("", "Software", "x", L"x", kAccess));
  EXPECT_TRUE(util::ReadSystemRegistry("HKEY_LOCAL_MACHINE",
                                       "Software\\Microsoft\\Windows NT\\CurrentVersion",
                                       "ProductName", KEY_READ));
}

// Whoever looks at a described machine leaves the one before him as it is.
TEST(SystemRegistry, IsTheLiveMachinesAlone) {
  const OwnKey key;
  const TemporaryFolder folder;
  os::SetDataFolder(folder.path);
  key.SetText(L"Read", L"this machine");
  std::wstring value;

  machine::SetCurrent(std::make_unique<FakeMachine>());
  EXPECT_FALSE(DE::Registry::GetValue(kRoot, key.path, "Read", value, kAccess));
  EXPECT_TRUE(DE::Registry::SetValue(kRoot, key.path, "Described", L"x", kAccess));
  EXPECT_FALSE(key.Read("Described"));

  machine::SetCurrent(nullptr);
  EXPECT_TRUE(DE::Registry::GetValue(kRoot, key.path, "Read", value, kAccess));
  EXPECT_EQ(value, L"this machine");
  EXPECT_TRUE(DE::Registry::SetValue(kRoot, key.path, "Live", L"y", kAccess));
  EXPECT_EQ(key.Read("Live"), L"y");
  EXPECT_FALSE(DE::Registry::SetValue(kRoot, key.path, "Refused", L"z", KEY_READ));
  EXPECT_FALSE(DE::Registry::GetValue(kRoot, key.path, "Refused", value, kAccess));
}

}  // namespace
