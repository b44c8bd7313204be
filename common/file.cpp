#include "common/file.h"

#include <algorithm>
#include <fstream>
#include <random>
#include <stdexcept>

#include "common/path_text.h"

namespace common {
namespace {

namespace fs = std::filesystem;

fs::path LinkTarget(const fs::path& file) {
  std::error_code error;
  const fs::path target = fs::is_symlink(file, error) ? fs::canonical(file, error) : file;
  return error ? file : target;
}

bool WriteNew(const fs::path& file, std::string_view content) {
  std::ofstream stream(file, std::ios::binary | std::ios::trunc);
  stream.write(content.data(), static_cast<std::streamsize>(content.size()));
  stream.close();
  return !stream.fail();
}

}  // namespace

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

void ReplaceFile(const fs::path& file, std::string_view content) {
  const auto fail = [&file](const std::string& reason) {
    throw std::runtime_error(PathText(file) + ": " + reason);
  };
  const fs::path target = LinkTarget(file);
  std::error_code error;
  const fs::file_status status = fs::status(target, error);
  if (fs::exists(status) && !fs::is_regular_file(status)) fail("is not a regular file");
  if (target.has_parent_path() && !fs::is_directory(target.parent_path(), error))
    fail("its folder does not exist");

  fs::path written = target;
  written += "." + std::to_string(std::random_device()()) + ".new";
  const bool isWritten = WriteNew(written, content);
  if (isWritten) fs::rename(written, target, error);
  if (isWritten && !error) return;
  fs::remove(written, error);
  fail("cannot be written");
}

std::filesystem::path BackslashPath(std::string_view path) {
  std::string native(path);
  std::replace(native.begin(), native.end(), '\\', '/');
  return TextPath(native);
}

}  // namespace common
