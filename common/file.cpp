#include "common/file.h"

#include <algorithm>
#include <fstream>
#include <stdexcept>

#include "common/path_text.h"

namespace common {

std::string ReadFile(const std::filesystem::path& file, std::size_t limit) {
  std::ifstream stream(file, std::ios::binary);
  std::string content;
  std::string block(64 * 1024, '\0');
  while (stream && content.size() <= limit) {
    stream.read(block.data(), static_cast<std::streamsize>(block.size()));
    content.append(block, 0, static_cast<std::size_t>(stream.gcount()));
  }
  if (stream.bad() || !stream.is_open() || std::filesystem::is_directory(file))
    throw std::runtime_error("cannot open file " + PathText(file));
  content.resize(std::min(content.size(), limit + 1));
  return content;
}

std::filesystem::path BackslashPath(std::string_view path) {
  std::string native(path);
  std::replace(native.begin(), native.end(), '\\', '/');
  return TextPath(native);
}

}  // namespace common
