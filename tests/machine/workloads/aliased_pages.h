#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

/// Pages that show up at two places, one after the other, as with a broken address line.
class AliasedPages {
 public:
  AliasedPages();
  ~AliasedPages();
  AliasedPages(const AliasedPages&) = delete;
  AliasedPages& operator=(const AliasedPages&) = delete;

  bool IsMapped() const { return isMapped; }
  std::span<volatile std::uint64_t> Words() const {
    return {reinterpret_cast<volatile std::uint64_t*>(first), 2 * kPart / sizeof(std::uint64_t)};
  }

 private:
  static constexpr std::size_t kPart = std::size_t{64} * 1024;
  char* first = nullptr;
  bool isMapped = false;
};
