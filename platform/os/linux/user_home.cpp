#include "platform/os/linux/user_home.h"

#include <pwd.h>

#include <cerrno>
#include <vector>

namespace os {

namespace fs = std::filesystem;

fs::path HomeInUserDatabase(uid_t user) {
  constexpr std::size_t kLargestEntry = 1 << 20;
  passwd entry{};
  passwd* found = nullptr;
  int result = ERANGE;
  std::vector<char> texts;
  for (std::size_t size = 1024; result == ERANGE && size <= kLargestEntry; size *= 2) {
    texts.resize(size);
    result = getpwuid_r(user, &entry, texts.data(), texts.size(), &found);
  }
  if (found == nullptr || *found->pw_dir != '/') return {};
  std::error_code error;
  const fs::path home = found->pw_dir;
  return fs::is_directory(home, error) ? home : fs::path();
}

}  // namespace os
