#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>

/// Builds one structure of a firmware table: bytes at offsets, then its strings.
class SmbiosBytes {
 public:
  SmbiosBytes(std::uint8_t type, std::size_t length) : formatted(length, '\0') {
    formatted[0] = static_cast<char>(type);
    formatted[1] = static_cast<char>(length);
  }

  SmbiosBytes& Number(std::size_t offset, std::size_t width, std::uint32_t number) {
    for (std::size_t i = 0; i < width; ++i)
      formatted.at(offset + i) = static_cast<char>(number >> 8 * i & 0xFF);
    return *this;
  }

  SmbiosBytes& Text(std::size_t offset, std::string_view text) {
    strings.append(text).push_back('\0');
    return Number(offset, 1, ++stringCount);
  }

  std::string Done() const {
    return formatted + (strings.empty() ? std::string(1, '\0') : strings) + '\0';
  }

  /// The usual whole table of a laptop with one of two slots filled.
  static std::string Laptop() {
    const std::string system = SmbiosBytes(1, 27).Text(4, "Maker").Text(5, "TUSK 14").Done();
    const std::string board = SmbiosBytes(2, 15)
                                  .Text(4, "Board Maker")
                                  .Text(5, "BRD-1")
                                  .Text(6, "V2 ")
                                  .Text(7, "B0001")
                                  .Done();
    const std::string processor = SmbiosBytes(4, 26).Number(0x12, 2, 100).Done();
    const std::string filled = SmbiosBytes(17, 0x5C)
                                   .Number(0x0C, 2, 0x7FFF)
                                   .Number(0x1C, 4, 49152)
                                   .Text(0x10, "DIMM 0")
                                   .Number(0x15, 2, 0xFFFF)
                                   .Number(0x54, 4, 70000)
                                   .Text(0x17, "Chips")
                                   .Text(0x18, "S123")
                                   .Text(0x1A, "PN-48  ")
                                   .Done();
    const std::string empty =
        SmbiosBytes(17, 0x28).Text(0x10, "DIMM 1").Text(0x17, "Not Specified").Done();
    return system + board + processor + filled + empty + SmbiosBytes(127, 4).Done();
  }

 private:
  std::string formatted;
  std::string strings;
  std::uint32_t stringCount = 0;
};
