#include "platform/machine/machine_files/json_node.h"

#include <rapidjson/error/en.h>

#include <algorithm>
#include <limits>
#include <set>

#include "common/log.h"
#include "common/text.h"
#include "platform/machine/machine_files/machine_file.h"

namespace machine {
namespace {

constexpr int kMaxDepth = 16;
constexpr std::size_t kMaxShownKey = 80;

[[noreturn]] void FailAt(std::string_view text, std::size_t offset, const std::string& file,
                         const std::string& reason) {
  const std::string_view before = text.substr(0, offset);
  const auto line = std::ranges::count(before, '\n') + 1;
  const std::string_view lineStart = before.substr(before.rfind('\n') + 1);
  const auto isFirstByte = [](char byte) { return (byte & 0xC0) != 0x80; };
  const auto column = std::ranges::count_if(lineStart, isFirstByte) + 1;
  throw MachineFileError(file + ": " + std::to_string(line) + ":" + std::to_string(column) + ": " +
                         reason);
}

// The parser takes a zero byte for the end of the text, and it nests as deep as memory allows.
void CheckBeforeParsing(std::string_view text, const std::string& file) {
  int depth = 0;
  bool inString = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char byte = text[i];
    if (byte == '\0') FailAt(text, i, file, "zero byte");
    if (byte == '"') {
      inString = !inString;
    } else if (inString) {
      if (byte == '\\' && i + 1 < text.size() && text[i + 1] != '\0') ++i;
    } else if (byte == '{' || byte == '[') {
      if (++depth > kMaxDepth)
        FailAt(text, i, file, "nested deeper than " + std::to_string(kMaxDepth) + " levels");
    } else if (byte == '}' || byte == ']') {
      --depth;
    }
  }
}

std::string ReasonOf(rapidjson::ParseErrorCode code) {
  std::string reason = rapidjson::GetParseError_En(code);
  if (reason.ends_with('.')) reason.pop_back();
  reason.front() = static_cast<char>(reason.front() | 0x20);
  return reason;
}

// The parser checks the bytes of a text, but lets an escaped low surrogate stand alone.
bool HoldsSurrogate(std::string_view text) {
  for (std::size_t at = text.find('\xED'); at != text.npos; at = text.find('\xED', at + 1)) {
    if (at + 1 < text.size() && static_cast<unsigned char>(text[at + 1]) >= 0xA0) return true;
  }
  return false;
}

std::string_view ViewOf(const rapidjson::Value& text) {
  return {text.GetString(), text.GetStringLength()};
}

}  // namespace

rapidjson::Document ParseJson(std::string_view text, const std::string& file) {
  CheckBeforeParsing(text, file);
  rapidjson::Document document;
  document.Parse<rapidjson::kParseIterativeFlag | rapidjson::kParseValidateEncodingFlag>(
      text.data(), text.size());
  if (document.HasParseError())
    FailAt(text, document.GetErrorOffset(), file, ReasonOf(document.GetParseError()));
  return document;
}

std::string JsonNode::Utf8() const {
  if (!value.IsString()) Fail("expected a text");
  const std::string_view text = ViewOf(value);
  if (HoldsSurrogate(text)) Fail("half of a surrogate pair in the text");
  return std::string(text);
}

std::wstring JsonNode::Text() const {
  return common::Utf8ToWide(Utf8());
}

bool JsonNode::Flag() const {
  if (!value.IsBool()) Fail("expected true or false");
  return value.GetBool();
}

std::uint64_t JsonNode::Number(std::uint64_t largest) const {
  if (!value.IsUint64() || value.GetUint64() > largest)
    Fail("expected a whole number from 0 to " + std::to_string(largest));
  return value.GetUint64();
}

std::uint32_t JsonNode::Code() const {
  constexpr std::int64_t kLowest = std::numeric_limits<std::int32_t>::min();
  constexpr std::int64_t kHighest = std::numeric_limits<std::uint32_t>::max();
  if (!value.IsInt64() || value.GetInt64() < kLowest || value.GetInt64() > kHighest)
    Fail("expected a whole number from " + std::to_string(kLowest) + " to " +
         std::to_string(kHighest));
  return static_cast<std::uint32_t>(value.GetInt64());
}

std::vector<JsonNode> JsonNode::Members() const& {
  if (!value.IsObject()) Fail("expected an object");
  std::vector<JsonNode> members;
  members.reserve(value.MemberCount());
  std::set<std::string_view> seen;
  for (const auto& member : value.GetObject()) {
    JsonNode& node = members.emplace_back(JsonNode(member.value, file, this));
    node.key = ViewOf(member.name);
    if (HoldsSurrogate(node.key)) node.Fail("half of a surrogate pair in the key");
    if (!seen.insert(node.key).second) node.Fail("given twice");
  }
  return members;
}

std::vector<JsonNode> JsonNode::Elements(std::size_t most) const& {
  if (!value.IsArray()) Fail("expected an array");
  if (value.Size() > most) Fail("expected at most " + std::to_string(most) + " entries");
  std::vector<JsonNode> elements;
  elements.reserve(value.Size());
  for (const rapidjson::Value& element : value.GetArray()) {
    JsonNode& node = elements.emplace_back(JsonNode(element, file, this));
    node.index = elements.size() - 1;
  }
  return elements;
}

void JsonNode::Fail(const std::string& reason) const {
  const std::string place = Place();
  throw MachineFileError(file + ": " + (place.empty() ? "" : place + ": ") + reason);
}

std::string JsonNode::Place() const {
  if (parent == nullptr) return {};
  const std::string way = parent->Place();
  if (index) return way + "[" + std::to_string(*index) + "]";
  const std::string shown =
      common::OneLine(key.substr(0, kMaxShownKey)) + (key.size() > kMaxShownKey ? "..." : "");
  return way.empty() ? shown : way + "." + shown;
}

}  // namespace machine
