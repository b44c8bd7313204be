#pragma once

#include <filesystem>
#include <fstream>
#include <string_view>

namespace companion {

/// A file that is written piece by piece and goes away again unless it is kept. One thread; writing
/// throws std::runtime_error "<path>: <reason>".
class OutputFile {
 public:
  /// Takes the place of a file, or of a link as such.
  explicit OutputFile(std::filesystem::path file);
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;
  ~OutputFile();

  void Write(std::string_view bytes);

  /// Writes what is missing; nothing can be written after it.
  void Close();

  /// Leaves the file there, under its own name or under a new one. Call order: Close, Keep.
  void Keep();
  void KeepAs(const std::filesystem::path& name);

  const std::filesystem::path& Path() const { return path; }

 private:
  void Check() const;

  const std::filesystem::path path;
  std::ofstream stream;
  bool kept = false;
};

}  // namespace companion
