#include "platform/os/reveal.h"

#include <chrono>
#include <string>
#include <string_view>

#include "common/path_text.h"
#include "platform/os/process.h"

namespace os {
namespace {

constexpr std::chrono::seconds kLimit(10);

std::string FileUri(const std::filesystem::path& file) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  constexpr std::string_view kPlain =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~/";
  std::string uri = "file://";
  for (const char c : common::PathText(file)) {
    const auto byte = static_cast<unsigned char>(c);
    if (kPlain.find(c) != std::string_view::npos)
      uri += c;
    else
      uri += {'%', kDigits[byte >> 4], kDigits[byte & 0xF]};
  }
  return uri;
}

bool Succeeds(const std::vector<std::string>& command) {
  const auto result = RunProcess(command, kLimit);
  return result && result->exitStatus == 0;
}

}  // namespace

bool RevealInFolder(const std::filesystem::path& file) {
  const std::filesystem::path whole = std::filesystem::absolute(file);
  return Succeeds({"dbus-send", "--session", "--print-reply", "--dest=org.freedesktop.FileManager1",
                   "/org/freedesktop/FileManager1", "org.freedesktop.FileManager1.ShowItems",
                   "array:string:" + FileUri(whole), "string:"}) ||
         Succeeds({"xdg-open", common::PathText(whole.parent_path())});
}

}  // namespace os
