#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

// Small files by which the kernel tells about devices. What cannot be read is empty, and so is what
// is no plain file; nothing throws but for memory.
namespace machine {

/// The first line without white space around it, of at most 4096 bytes.
std::string ReadLine(const std::filesystem::path& file);

/// The decimal number at the start of the file.
std::optional<std::uint64_t> ReadNumber(const std::filesystem::path& file);

/// The hexadecimal number at the start of the file, with or without "0x".
std::optional<std::uint32_t> ReadHex(const std::filesystem::path& file);

/// At most `limit` bytes.
std::vector<std::byte> ReadBytes(const std::filesystem::path& file, std::size_t limit);
std::string ReadText(const std::filesystem::path& file, std::size_t limit);

/// At most 4096 of the names in a folder, sorted.
std::vector<std::string> ListNames(const std::filesystem::path& folder);

bool Exists(const std::filesystem::path& path);

/// The number in front of the text; a sign is not part of one.
std::optional<std::uint64_t> LeadingNumber(const std::string& text);

}  // namespace machine
