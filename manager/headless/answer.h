#pragma once

#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace manager {

using Json = rapidjson::Writer<rapidjson::StringBuffer>;

void WriteText(Json& json, const char* key, const std::wstring& text);
/// UTF-8; malformed bytes are replaced.
void WriteText(Json& json, const char* key, const std::string& text);

/// Lower-case digits, two a byte.
std::string HexText(const std::vector<std::uint8_t>& bytes);

/// "0x20000A".
std::string HexId(std::uint32_t id);

/// Prints {"ok":true} with more fields, on one line at once.
void PrintOk(const std::function<void(Json&)>& fields);

/// Prints {"ok":false,"error":TEXT}.
void PrintError(const std::string& error);

}  // namespace manager
