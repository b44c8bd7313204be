#include "platform/machine/live/linux/system_file.h"

#include <algorithm>
#include <charconv>
#include <fstream>
#include <system_error>

#include "common/ascii.h"

namespace machine {

std::string ReadLine(const std::filesystem::path& file) {
  std::ifstream stream(file);
  std::string line;
  std::getline(stream, line);
  return common::Trimmed(line);
}

std::optional<std::uint64_t> ReadNumber(const std::filesystem::path& file) {
  return LeadingNumber(ReadLine(file));
}

std::vector<std::byte> ReadBytes(const std::filesystem::path& file, std::size_t limit) {
  std::ifstream stream(file, std::ios::binary);
  std::vector<std::byte> bytes(limit);
  stream.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(limit));
  bytes.resize(static_cast<std::size_t>(stream.gcount()));
  return bytes;
}

std::vector<std::string> ListNames(const std::filesystem::path& folder) {
  std::vector<std::string> names;
  std::error_code error;
  for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error))
    names.push_back(entry->path().filename().string());
  std::ranges::sort(names);
  return names;
}

std::optional<std::uint64_t> LeadingNumber(const std::string& text) {
  std::uint64_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc()) return std::nullopt;
  return number;
}

}  // namespace machine
