#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace machine {

/// Memory of this process to be tested, zeroed, kept in place where the user may lock that much.
class MemoryBuffer {
 public:
  static constexpr std::size_t kSmallest = std::size_t{1} << 20;
  static constexpr std::size_t kLargest = std::size_t{256} << 20;

  /// A size in bytes that leaves the machine room to work: an eighth of what is available, within
  /// the bounds above.
  static std::size_t FittingSize();

  /// Nothing when the system does not give that many bytes.
  static std::optional<MemoryBuffer> Allocate(std::size_t bytes);

  MemoryBuffer(MemoryBuffer&& other) noexcept;
  MemoryBuffer& operator=(MemoryBuffer&& other) noexcept;
  ~MemoryBuffer();

  std::span<volatile std::uint64_t> Words() const;

 private:
  MemoryBuffer(void* mapped, std::size_t bytes) : address(mapped), size(bytes) {}

  void* address;
  std::size_t size;
};

}  // namespace machine
