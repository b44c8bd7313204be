#pragma once

#include <concepts>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <tuple>
#include <type_traits>
#include <vector>

#include "common/protocol/ipc_data_io.h"
#include "common/text.h"

// The values of a body: Write and Read one after another, SizeOf in bytes. A count that is read is
// checked against the bytes left before anything is sized by it. docs/messages.md describes them.
namespace protocol {

/// First word of every versioned body.
inline constexpr std::uint32_t kVersion = 1;

/// Integers and enumerations of two and four bytes; one byte for bool and std::uint8_t.
template <typename Value>
concept Plain = sizeof(Value) <= 4 && (std::integral<Value> || std::is_enum_v<Value>);

/// A value of several, which `static auto Fields(auto& value)` ties together in their order.
template <typename Value>
concept Record = requires(Value& value) {
  Value::Fields(value);
};

inline std::uint32_t CountOf(std::size_t count) {
  if (count > UINT32_MAX) throw std::runtime_error("Invalid buffer size");
  return static_cast<std::uint32_t>(count);
}

template <Plain Value>
std::size_t SizeOf(Value) {
  return sizeof(Value);
}
inline std::size_t SizeOf(const std::string& text) {
  return 4 + text.size();
}
inline std::size_t SizeOf(const std::wstring& text) {
  return 4 + 2 * common::WideToUtf16(text).size();
}
template <typename Element>
std::size_t SizeOf(const std::vector<Element>& elements) {
  std::size_t size = 4;
  for (const Element& element : elements) size += SizeOf(element);
  return size;
}
template <Record Value>
std::size_t SizeOf(const Value& value) {
  return std::apply([](const auto&... field) { return (SizeOf(field) + ...); },
                    Value::Fields(value));
}

template <Plain Value>
void Write(IIPCDataIO& io, Value value) {
  io.WriteBytes(&value, sizeof value);
}

/// Writes the count and `n` bytes with room made once.
inline void WriteBlock(IIPCDataIO& io, std::size_t count, const void* bytes, std::size_t n) {
  io.Reserve(CountOf(4 + n));
  io.WriteUInt32(CountOf(count));
  io.WriteBytes(bytes, CountOf(n));
}

inline void Write(IIPCDataIO& io, const std::string& text) {
  WriteBlock(io, text.size(), text.data(), text.size());
}
inline void Write(IIPCDataIO& io, const std::wstring& text) {
  const std::u16string units = common::WideToUtf16(text);
  WriteBlock(io, units.size(), units.data(), 2 * units.size());
}
template <typename Element>
void Write(IIPCDataIO& io, const std::vector<Element>& elements) {
  if constexpr (Plain<Element>) {
    WriteBlock(io, elements.size(), elements.data(), sizeof(Element) * elements.size());
  } else {
    io.Reserve(CountOf(SizeOf(elements)));
    io.WriteUInt32(CountOf(elements.size()));
    for (const Element& element : elements) Write(io, element);
  }
}
template <Record Value>
void Write(IIPCDataIO& io, const Value& value) {
  std::apply([&io](const auto&... field) { (Write(io, field), ...); }, Value::Fields(value));
}

template <Plain Value>
void Read(IIPCDataIO& io, Value& value) {
  io.ReadBytes(&value, sizeof value);
}
inline void Read(IIPCDataIO& io, bool& value) {
  value = io.ReadByte() != 0;
}

/// Reads a count of elements that each take at least `size` bytes.
inline std::uint32_t ReadCount(IIPCDataIO& io, std::uint32_t size) {
  const std::uint32_t count = io.ReadUInt32();
  io.RequireBytes(std::uint64_t{count} * size);
  return count;
}

inline void Read(IIPCDataIO& io, std::string& text) {
  const std::uint32_t count = ReadCount(io, 1);
  text.resize(count);
  io.ReadBytes(text.data(), count);
}
inline void Read(IIPCDataIO& io, std::wstring& text) {
  const std::uint32_t count = ReadCount(io, 2);
  std::u16string units(count, u'\0');
  io.ReadBytes(units.data(), 2 * count);
  text = common::Utf16ToWide(units);
}

/// The least number of bytes that a value takes: that of an empty one.
template <typename Element>
std::uint32_t LeastSize() {
  return CountOf(SizeOf(Element{}));
}

template <typename Element>
void Read(IIPCDataIO& io, std::vector<Element>& elements) {
  const std::uint32_t count = ReadCount(io, LeastSize<Element>());
  elements.resize(count);
  if constexpr (Plain<Element>) {
    io.ReadBytes(elements.data(), CountOf(sizeof(Element) * count));
  } else {
    for (Element& element : elements) Read(io, element);
  }
}
template <Record Value>
void Read(IIPCDataIO& io, Value& value) {
  std::apply([&io](auto&... field) { (Read(io, field), ...); }, Value::Fields(value));
}

template <typename Value>
void WriteVersioned(IIPCDataIO& io, const Value& value) {
  Write(io, kVersion);
  Write(io, value);
}

/// Throws "Invalid Serialize ver" for a body of another format.
template <typename Value>
void ReadVersioned(IIPCDataIO& io, Value& value) {
  if (io.ReadUInt32() != kVersion) throw std::runtime_error("Invalid Serialize ver");
  Read(io, value);
}

}  // namespace protocol
