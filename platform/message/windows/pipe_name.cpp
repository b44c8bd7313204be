#include <windows.h>

#include <cwctype>
#include <stdexcept>
#include <string>
#include <string_view>

#include "common/path_text.h"
#include "platform/message/broker_connection.h"
#include "platform/message/local_stream.h"
#include "platform/message/windows/user.h"
#include "platform/os/sha256.h"

namespace message {
namespace {

namespace fs = std::filesystem;

constexpr std::wstring_view kPipes = L"\\\\.\\pipe\\";
constexpr std::size_t kLongestName = 256;

// As the file system compares names: unit by unit and the same in every language.
std::wstring UpperCase(std::wstring_view text) {
  std::wstring upper(text.size(), L'\0');
  const int size = static_cast<int>(text.size());
  LCMapStringEx(LOCALE_NAME_INVARIANT, LCMAP_UPPERCASE, text.data(), size, upper.data(), size,
                nullptr, nullptr, 0);
  return upper;
}

bool IsPipeName(const std::wstring& text) {
  return UpperCase(std::wstring_view(text).substr(0, kPipes.size())) == UpperCase(kPipes);
}

// Without the steps and separators that name the same place in another way.
std::wstring FullPath(const fs::path& path) {
  std::wstring full(GetFullPathNameW(path.c_str(), 0, nullptr, nullptr), L'\0');
  full.resize(
      GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
  return full;
}

std::wstring HashText(std::wstring_view text) {
  const auto hash =
      os::Sha256({reinterpret_cast<const char*>(text.data()), text.size() * sizeof(wchar_t)});
  constexpr std::wstring_view kDigits = L"0123456789abcdef";
  std::wstring digits;
  for (const std::uint8_t byte : hash) {
    digits += kDigits[byte >> 4];
    digits += kDigits[byte & 0xF];
  }
  return digits;
}

}  // namespace

// Hashed, as a path may be longer than a pipe's name, and a back slash cannot stand in one.
fs::path LocalAddress(const fs::path& socket) {
  const std::wstring& text = socket.native();
  if (!IsPipeName(text))
    return std::wstring(kPipes) + L"sysdiagnose-" + HashText(UpperCase(FullPath(socket)));
  if (text.size() == kPipes.size() || text.size() > kLongestName)
    throw std::runtime_error(common::PathText(socket) + ": the name of a pipe has 1 to " +
                             std::to_string(kLongestName - kPipes.size()) + " characters");
  return socket;
}

// One for each session: what a program shows belongs to the desktop that it runs on.
fs::path DefaultBrokerSocket() {
  DWORD session = 0;
  ProcessIdToSessionId(GetCurrentProcessId(), &session);
  return std::wstring(kPipes) + L"sysdiagnose-" + UserSid() + L"-" + std::to_wstring(session);
}

}  // namespace message
