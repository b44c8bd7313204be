#pragma once

#include <rapidjson/document.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace machine {

/// Parses the JSON text of a machine file: UTF-8, nested at most 16 deep. Throws MachineFileError
/// with line and column (in characters, from 1).
rapidjson::Document ParseJson(std::string_view text, const std::string& file);

/// One value of a machine file together with the way to it. Reading it as something that it is not
/// throws MachineFileError naming that way. A child points at its parent, which must outlive it.
class JsonNode {
 public:
  static constexpr std::size_t kMaxElements = 1024;

  /// The whole of a file.
  JsonNode(const rapidjson::Value& root, const std::string& fileName)
      : JsonNode(root, fileName, nullptr) {}

  std::string_view Key() const { return key; }
  bool IsNumber() const { return value.IsNumber(); }
  bool IsArray() const { return value.IsArray(); }
  bool IsObject() const { return value.IsObject(); }

  std::string Utf8() const;
  std::wstring Text() const;
  bool Flag() const;

  /// A whole number from 0 to `largest`.
  std::uint64_t Number(std::uint64_t largest) const;

  /// A result code: 32 bits, signed or not.
  std::uint32_t Code() const;

  /// Each key stands once.
  std::vector<JsonNode> Members() const&;
  std::vector<JsonNode> Members() const&& = delete;
  std::vector<JsonNode> Elements(std::size_t most = kMaxElements) const&;
  std::vector<JsonNode> Elements(std::size_t most = kMaxElements) const&& = delete;

  [[noreturn]] void Fail(const std::string& reason) const;

 private:
  JsonNode(const rapidjson::Value& nodeValue, const std::string& fileName, const JsonNode* owner)
      : value(nodeValue), file(fileName), parent(owner) {}

  std::string Place() const;

  const rapidjson::Value& value;
  const std::string& file;
  const JsonNode* parent;
  std::string_view key;              // for a member
  std::optional<std::size_t> index;  // for an element
};

}  // namespace machine
