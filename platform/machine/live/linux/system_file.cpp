#include "platform/machine/live/linux/system_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <span>
#include <string_view>
#include <system_error>

#include "common/ascii.h"

namespace machine {
namespace {

constexpr std::size_t kLineLimit = 4096;
constexpr std::size_t kNameLimit = 4096;

/// A file opened for reading; nothing but plain files, so that no pipe or device is waited for.
class PlainFile {
 public:
  explicit PlainFile(const std::filesystem::path& file)
      : descriptor(open(file.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC)) {
    struct stat state {};
    if (descriptor >= 0 && (fstat(descriptor, &state) != 0 || !S_ISREG(state.st_mode))) {
      close(descriptor);
      descriptor = -1;
    }
  }
  PlainFile(const PlainFile&) = delete;
  PlainFile& operator=(const PlainFile&) = delete;
  ~PlainFile() {
    if (descriptor >= 0) close(descriptor);
  }

  /// The number of bytes put at the start of `target`, fewer than it holds at the end of the file.
  std::size_t Read(std::span<std::byte> target) const {
    std::size_t filled = 0;
    while (descriptor >= 0 && filled < target.size()) {
      const ssize_t count = read(descriptor, target.data() + filled, target.size() - filled);
      if (count < 0 && errno == EINTR) continue;
      if (count <= 0) break;
      filled += static_cast<std::size_t>(count);
    }
    return filled;
  }

 private:
  int descriptor;
};

template <typename Integer>
std::optional<Integer> NumberOf(std::string_view text, int base) {
  Integer number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number, base);
  if (error != std::errc()) return std::nullopt;
  return number;
}

}  // namespace

std::vector<std::byte> ReadBytes(const std::filesystem::path& file, std::size_t limit) {
  std::vector<std::byte> bytes(limit);
  bytes.resize(PlainFile(file).Read(bytes));
  return bytes;
}

std::string ReadText(const std::filesystem::path& file, std::size_t limit) {
  std::string text(limit, '\0');
  text.resize(PlainFile(file).Read(std::as_writable_bytes(std::span(text))));
  return text;
}

std::string ReadLine(const std::filesystem::path& file) {
  const std::string text = ReadText(file, kLineLimit);
  return common::Trimmed(text.substr(0, text.find('\n')));
}

std::optional<std::uint64_t> ReadNumber(const std::filesystem::path& file) {
  return LeadingNumber(ReadLine(file));
}

std::optional<std::uint32_t> ReadHex(const std::filesystem::path& file) {
  const std::string line = ReadLine(file);
  std::string_view digits = line;
  if (digits.starts_with("0x")) digits.remove_prefix(2);
  return NumberOf<std::uint32_t>(digits, 16);
}

std::vector<std::string> ListNames(const std::filesystem::path& folder) {
  std::vector<std::string> names;
  std::error_code error;
  for (std::filesystem::directory_iterator entry(folder, error), end;
       !error && entry != end && names.size() < kNameLimit; entry.increment(error))
    names.push_back(entry->path().filename().string());
  std::ranges::sort(names);
  return names;
}

bool Exists(const std::filesystem::path& path) {
  std::error_code error;
  return std::filesystem::exists(path, error);
}

std::optional<std::uint64_t> LeadingNumber(const std::string& text) {
  return NumberOf<std::uint64_t>(text, 10);
}

}  // namespace machine
