#pragma once

#include <cstddef>
#include <cstdint>

namespace protocol {

/// Writes or reads a message body. The order of the operations is the binary contract.
class IIPCDataIO {
 public:
  /// Makes room for n more bytes.
  virtual void Reserve(std::uint32_t n) = 0;
  virtual void WriteUInt32(std::uint32_t value) = 0;
  virtual void WriteByte(std::uint8_t value) = 0;
  virtual void WriteBytes(const void* bytes, std::uint32_t n) = 0;
  virtual std::uint32_t ReadUInt32() = 0;
  virtual std::uint8_t ReadByte() = 0;
  virtual void ReadBytes(void* bytes, std::uint32_t n) = 0;
  virtual ~IIPCDataIO() = default;

  /// Throws "Data for unserialize too small" unless n more bytes can be read.
  virtual void RequireBytes(std::uint64_t n) const = 0;
};

/// A growable byte buffer with a cursor, for one body. Integers lie as in memory, little-endian,
/// without alignment; docs/messages.md describes the bodies. One thread at a time.
///
/// Throws std::runtime_error: "Invalid serialize call type" for a write on a reading object or a
/// read on a writing one, "Invalid buffer size" for a body over 0x0FFFFFFF bytes,
/// "Data for unserialize too small" for a read behind the end.
class CIPCDataIO final : public IIPCDataIO {
 public:
  /// The capacity grows by whole multiples of this many bytes.
  static constexpr std::int32_t kGrowStep = 64;

  /// For writing.
  explicit CIPCDataIO(std::int32_t growStep = kGrowStep);

  /// For reading bytes that outlive this object.
  CIPCDataIO(const std::uint8_t* bytes, std::uint32_t n);

  CIPCDataIO(const CIPCDataIO&) = delete;
  CIPCDataIO& operator=(const CIPCDataIO&) = delete;
  ~CIPCDataIO() override;

  void Reserve(std::uint32_t n) override;
  void WriteUInt32(std::uint32_t value) override;
  void WriteByte(std::uint8_t value) override;
  void WriteBytes(const void* bytes, std::uint32_t n) override;
  std::uint32_t ReadUInt32() override;
  std::uint8_t ReadByte() override;
  void ReadBytes(void* bytes, std::uint32_t n) override;
  void RequireBytes(std::uint64_t n) const override;

  const std::uint8_t* Data() const { return buffer.data; }
  std::uint32_t Position() const { return position; }
  std::int32_t Capacity() const { return buffer.capacity; }

 private:
  struct Buffer {
    std::int32_t capacity;
    std::uint8_t* data;
  };

  void Require(bool unserialize) const;

  std::int32_t growStep;
  bool unserializing;
  bool ownsBuffer;
  std::uint32_t position = 0;
  Buffer buffer;
};

}  // namespace protocol
