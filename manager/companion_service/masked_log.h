#pragma once

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/machine/masking/identifier_mask.h"

namespace companion {

/// A log whose text comes out with its identifiers hashed, piece by piece, however long it or a
/// line of it is. The file is open only while something is read, so that many of these may stand
/// side by side. One thread; reading throws std::runtime_error "<path>: <reason>".
class MaskedLog {
 public:
  explicit MaskedLog(std::filesystem::path file) : path(std::move(file)) {}

  /// Goes to where the last lines of the file begin. Returns how many of `lines` the file lacks; 0
  /// when it has them all. `lines` is positive.
  std::size_t GoToLastLines(std::size_t lines);

  /// Hands on the text from here to the end.
  void Read(const machine::IdentifierMask& mask,
            const std::function<void(std::string_view piece)>& take) const;

 private:
  std::ifstream Open() const;
  std::string_view ReadBlock(std::ifstream& stream, std::string& block) const;

  const std::filesystem::path path;
  std::streamoff begin = 0;  // of what is handed on
};

}  // namespace companion
