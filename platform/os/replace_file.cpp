#include "platform/os/replace_file.h"

#include <random>
#include <string>

#include "platform/os/file_error.h"
#include "platform/os/new_file.h"
#include "platform/os/own_folder.h"

namespace os {
namespace {

namespace fs = std::filesystem;

// Not longer than a name may be, however long the file's own is.
fs::path NewFileBeside(const fs::path& file) {
  return file.parent_path() / (".sysdiagnose-" + std::to_string(std::random_device()()) + ".new");
}

// Where the content goes. Throws for a place that can be none.
fs::path TargetOf(const fs::path& file) {
  fs::path target = FollowOwnLinks(file);
  std::error_code error;
  const fs::file_status status = fs::status(target, error);
  if (fs::exists(status) && !fs::is_regular_file(status))
    throw FileError(file, "is not a regular file");
  if (target.has_parent_path() &&
      fs::status(target.parent_path(), error).type() == fs::file_type::not_found)
    throw FileError(file, "its folder does not exist");
  return target;
}

}  // namespace

void RequireReplaceable(const fs::path& file) {
  const fs::path tried = NewFileBeside(TargetOf(file));
  const std::error_code error = WriteNewFile(tried, {});
  std::error_code ignored;
  fs::remove(tried, ignored);
  if (error) throw FileError(file, "cannot be written: " + error.message());
}

void ReplaceFile(const fs::path& file, std::string_view content) {
  const fs::path target = TargetOf(file);
  const fs::path written = NewFileBeside(target);
  std::error_code error = WriteNewFile(written, content);
  if (!error) fs::rename(written, target, error);
  if (!error) return;
  std::error_code ignored;
  fs::remove(written, ignored);
  throw FileError(file, "cannot be written: " + error.message());
}

}  // namespace os
