#include "common/protocol/ipc_data_io.h"

#include <bit>
#include <cstring>
#include <stdexcept>

namespace protocol {
namespace {

static_assert(std::endian::native == std::endian::little);

constexpr std::uint64_t kMaxSize = 0x0FFFFFFF;

}  // namespace

CIPCDataIO::CIPCDataIO(std::int32_t step)
    : growStep(step), unserializing(false), ownsBuffer(true), buffer{0, nullptr} {}

// A reading object never writes through its pointer.
CIPCDataIO::CIPCDataIO(const std::uint8_t* bytes, std::uint32_t n)
    : growStep(kGrowStep),
      unserializing(true),
      ownsBuffer(false),
      buffer{static_cast<std::int32_t>(n), const_cast<std::uint8_t*>(bytes)} {
  if (n > kMaxSize) throw std::runtime_error("Invalid buffer size");
}

CIPCDataIO::~CIPCDataIO() {
  if (ownsBuffer) delete[] buffer.data;
}

void CIPCDataIO::Reserve(std::uint32_t n) {
  Require(false);
  const std::uint64_t needed = std::uint64_t{position} + n;
  if (needed > kMaxSize) throw std::runtime_error("Invalid buffer size");
  if (needed <= static_cast<std::uint64_t>(buffer.capacity)) return;

  const auto step = static_cast<std::uint64_t>(growStep);
  const std::uint64_t capacity = (needed - 1 + step) / step * step;
  auto* grown = new std::uint8_t[capacity];
  if (position > 0) std::memcpy(grown, buffer.data, position);
  delete[] buffer.data;
  buffer = {static_cast<std::int32_t>(capacity), grown};
}

void CIPCDataIO::WriteUInt32(std::uint32_t value) {
  WriteBytes(&value, sizeof value);
}

void CIPCDataIO::WriteByte(std::uint8_t value) {
  WriteBytes(&value, sizeof value);
}

void CIPCDataIO::WriteBytes(const void* bytes, std::uint32_t n) {
  Reserve(n);
  if (n > 0) std::memcpy(buffer.data + position, bytes, n);
  position += n;
}

std::uint32_t CIPCDataIO::ReadUInt32() {
  std::uint32_t value = 0;
  ReadBytes(&value, sizeof value);
  return value;
}

std::uint8_t CIPCDataIO::ReadByte() {
  std::uint8_t value = 0;
  ReadBytes(&value, sizeof value);
  return value;
}

void CIPCDataIO::ReadBytes(void* bytes, std::uint32_t n) {
  RequireBytes(n);
  if (n > 0) std::memcpy(bytes, buffer.data + position, n);
  position += n;
}

void CIPCDataIO::RequireBytes(std::uint64_t n) const {
  Require(true);
  if (n > static_cast<std::uint64_t>(buffer.capacity) - position)
    throw std::runtime_error("Data for unserialize too small");
}

void CIPCDataIO::Require(bool unserialize) const {
  if (unserializing != unserialize) throw std::runtime_error("Invalid serialize call type");
}

}  // namespace protocol
