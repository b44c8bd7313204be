#pragma once

#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <cstdint>
#include <string>

#include "sysdiagnose/records/history_record.h"

namespace cli {

/// One JSON object on a line of standard output, in UTF-8. Members come in the order they are
/// added; the line is printed, and flushed, when the object goes.
class JsonLine {
 public:
  JsonLine();
  explicit JsonLine(const char* type);
  JsonLine(const JsonLine&) = delete;
  JsonLine& operator=(const JsonLine&) = delete;
  ~JsonLine();

  JsonLine& Add(const char* name, const std::wstring& text);
  JsonLine& Add(const char* name, const std::string& text);
  JsonLine& Add(const char* name, std::int64_t number);
  JsonLine& Add(const char* name, bool flag);

  JsonLine& BeginArray(const char* name);
  JsonLine& EndArray();
  JsonLine& BeginObject();
  JsonLine& EndObject();

  /// Adds the seventeen cells of a run as an array.
  template <typename Integer>
  JsonLine& AddCells(const orv::sysdiagnose::BasicHistoryRecord<Integer>& record) {
    writer.Key("cells");
    writer.StartArray();
    for (const Integer result : record.results) writer.Int64(result);
    writer.Int64(record.passCount);
    writer.Int64(record.failCount);
    writer.String(record.date.c_str());
    writer.String(record.dateTime.c_str());
    writer.Int64(record.secondTime);
    writer.EndArray();
    return *this;
  }

 private:
  void Text(const std::string& utf8);

  rapidjson::StringBuffer buffer;
  rapidjson::Writer<rapidjson::StringBuffer> writer;
};

/// An id as it stands in messages.jsonl: "0x20000B".
std::string HexId(std::uint32_t id);

}  // namespace cli
