#pragma once

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

#include "platform/os/paths.h"
#include "tests/support/linux/fake_system.h"

/// The system files of a machine that a tree file lists, a line for each:
///
///     /path = text          a line of text; several of the same path follow one another
///     /path -> /target      a link to a path below the same root; another target stays as it is
///     /path : 00FF          bytes
///     # comment
class SystemTree : public FakeSystem {
 public:
  explicit SystemTree(const std::filesystem::path& tree) {
    std::ifstream lines(tree);
    if (!lines) throw std::runtime_error("no tree " + tree.string());
    for (std::string line; std::getline(lines, line);)
      if (!line.empty() && !line.starts_with('#')) Add(line);
  }

  /// Makes a link. Replaces what is there.
  void Link(const std::string& path, const std::string& target) const {
    const std::filesystem::path link = os::SystemPath(path);
    std::filesystem::create_directories(link.parent_path());
    std::filesystem::remove_all(link);
    const bool isWithin = target.starts_with("/sys/");
    std::filesystem::create_symlink(isWithin ? os::SystemPath(target).string() : target, link);
  }

  /// Takes a file, link or folder away; it must be there.
  void Remove(const std::string& path) const {
    if (std::filesystem::remove_all(os::SystemPath(path)) == 0)
      throw std::runtime_error("no " + path);
  }

 private:
  void Add(const std::string& line) const {
    const std::size_t end = line.find(' ');
    const std::string path = line.substr(0, end);
    const std::string kind = line.substr(end + 1, line.find(' ', end + 1) - end - 1);
    const std::string rest = line.substr(std::min(line.size(), end + 2 + kind.size()));
    if (kind == "->")
      Link(path, rest);
    else if (kind == ":")
      Write(path, Bytes(rest));
    else if (kind == "=")
      Append(path, rest + '\n');
    else
      throw std::runtime_error("no entry of a tree: " + line);
  }

  static void Append(const std::string& path, const std::string& text) {
    const std::filesystem::path file = os::SystemPath(path);
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary | std::ios::app) << text;
  }

  static std::string Bytes(const std::string& digits) {
    std::string bytes;
    for (std::size_t i = 0; i + 1 < digits.size(); i += 2)
      bytes += static_cast<char>(std::stoi(digits.substr(i, 2), nullptr, 16));
    return bytes;
  }
};
