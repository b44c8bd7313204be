#include "manager/headless/answer.h"

#include <array>
#include <cstdio>

#include "common/text.h"

namespace manager {
namespace {

void Print(const std::function<void(Json&)>& content) {
  rapidjson::StringBuffer buffer;
  Json json(buffer);
  json.StartObject();
  content(json);
  json.EndObject();
  std::puts(buffer.GetString());
  std::fflush(stdout);
}

}  // namespace

void WriteText(Json& json, const char* key, const std::wstring& text) {
  const std::string utf8 = common::WideToUtf8(text);
  json.Key(key);
  json.String(utf8.data(), static_cast<rapidjson::SizeType>(utf8.size()));
}

void WriteText(Json& json, const char* key, const std::string& text) {
  WriteText(json, key, common::Utf8ToWide(text));
}

std::string HexText(const std::vector<std::uint8_t>& bytes) {
  constexpr const char* kDigits = "0123456789abcdef";
  std::string text;
  for (const std::uint8_t byte : bytes) {
    text += kDigits[byte >> 4];
    text += kDigits[byte & 15];
  }
  return text;
}

std::string HexId(std::uint32_t id) {
  std::array<char, 11> text{};
  std::snprintf(text.data(), text.size(), "0x%X", id);
  return text.data();
}

void PrintOk(const std::function<void(Json&)>& fields) {
  Print([&fields](Json& json) {
    json.Key("ok");
    json.Bool(true);
    if (fields) fields(json);
  });
}

void PrintError(const std::string& error) {
  Print([&error](Json& json) {
    json.Key("ok");
    json.Bool(false);
    WriteText(json, "error", error);
  });
}

}  // namespace manager
