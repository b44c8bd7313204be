#include "sysdiagnose/environment/product_version.h"

#include <exception>

#include "common/file.h"
#include "common/text.h"
#include "platform/os/paths.h"
#include "platform/util/registry.h"
#include "platform/util/text_helpers.h"

namespace orv::sysdiagnose {
namespace {

constexpr std::size_t kMaxFileSize = 64 * 1024;
constexpr std::size_t kVersionBuffer = 64;  // characters, the end included

constexpr const char* kRoot = "HKEY_LOCAL_MACHINE";
constexpr const char* kKey = "HARDWARE\\DESCRIPTION\\System\\Product";
constexpr const char* kName = "Version";

}  // namespace

std::wstring ReadOemVersion() {
  try {
    return common::Utf8ToWide(common::ReadFile(os::OemVersionFile(), kMaxFileSize));
  } catch (const std::exception&) {
    return {};
  }
}

void KeepProductVersion(const std::wstring& text) {
  DE::Registry::SetValue(kRoot, kKey, kName, text, DE::Registry::kAllAccess);
}

std::wstring KeptProductVersion() {
  std::wstring value;
  if (!DE::Registry::GetValue(kRoot, kKey, kName, value, DE::Registry::kReadAccess)) return {};
  return value;
}

std::array<std::string, 3> ProductVersionPlace() {
  return {kRoot, kKey, kName};
}

std::string CleanProductVersion(std::string text) {
  if (text.size() >= kVersionBuffer) return {};
  std::erase_if(text, [](char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte < 0x20 || byte == 0x7F;
  });
  text = DE::TrimSP(text);
  return text.substr(0, text.find('_'));
}

}  // namespace orv::sysdiagnose
