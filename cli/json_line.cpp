#include "cli/json_line.h"

#include <array>
#include <cstdio>

#include "cli/output.h"
#include "common/text.h"

namespace cli {

JsonLine::JsonLine() : writer(buffer) {
  writer.StartObject();
}

JsonLine::JsonLine(const char* type) : JsonLine() {
  Add("type", std::string(type));
}

JsonLine::~JsonLine() {
  writer.EndObject();
  std::puts(buffer.GetString());
  FlushOutput();
}

JsonLine& JsonLine::Add(const char* name, const std::wstring& text) {
  writer.Key(name);
  Text(common::WideToUtf8(text));
  return *this;
}

// The round trip mends malformed UTF-8.
JsonLine& JsonLine::Add(const char* name, const std::string& text) {
  return Add(name, common::Utf8ToWide(text));
}

JsonLine& JsonLine::Add(const char* name, std::int64_t number) {
  writer.Key(name);
  writer.Int64(number);
  return *this;
}

JsonLine& JsonLine::Add(const char* name, bool flag) {
  writer.Key(name);
  writer.Bool(flag);
  return *this;
}

JsonLine& JsonLine::BeginArray(const char* name) {
  writer.Key(name);
  writer.StartArray();
  return *this;
}

JsonLine& JsonLine::EndArray() {
  writer.EndArray();
  return *this;
}

JsonLine& JsonLine::BeginObject() {
  writer.StartObject();
  return *this;
}

JsonLine& JsonLine::EndObject() {
  writer.EndObject();
  return *this;
}

void JsonLine::Text(const std::string& utf8) {
  writer.String(utf8.data(), static_cast<rapidjson::SizeType>(utf8.size()));
}

std::string HexId(std::uint32_t id) {
  std::array<char, 11> text{};
  std::snprintf(text.data(), text.size(), "0x%X", id);
  return text.data();
}

}  // namespace cli
