#include "platform/report/event_data_report.h"

#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <algorithm>
#include <exception>
#include <mutex>
#include <string_view>
#include <utility>

#include "common/log.h"
#include "common/text.h"
#include "platform/os/append_file.h"
#include "platform/os/clock.h"
#include "platform/os/paths.h"
#include "platform/report/observed_events.h"

namespace {

using JsonWriter = rapidjson::Writer<rapidjson::StringBuffer>;

bool IsPlainDecimal(std::string_view text) {
  const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
  if (text.empty() || !std::all_of(text.begin(), text.end(), isDigit)) return false;
  return text.size() == 1 || text.front() != '0';
}

void WriteText(JsonWriter& json, std::string_view text) {
  // The detour replaces malformed bytes, which JSON cannot carry.
  const std::string valid = common::WideToUtf8(common::Utf8ToWide(text));
  json.String(valid.data(), static_cast<rapidjson::SizeType>(valid.size()));
}

std::string EventLine(const tagLogInfo& message) {
  rapidjson::StringBuffer buffer;
  JsonWriter json(buffer);
  json.StartObject();
  json.Key("id");
  if (IsPlainDecimal(message.id)) {
    json.RawValue(message.id.data(), message.id.size(), rapidjson::kNumberType);
  } else {
    WriteText(json, message.id);
  }
  json.Key("payload");
  WriteText(json, message.payload);
  json.Key("time");
  json.Int64(os::CurrentClock().SecondsSinceEpoch());
  json.EndObject();
  return {buffer.GetString(), buffer.GetSize()};
}

struct Observation {
  std::mutex mutex;  // held during a call
  std::function<void(const tagLogInfo&)> observer;
};

Observation& TheObservation() {
  static auto& observation = *new Observation;
  return observation;
}

void TellObserver(const tagLogInfo& message) {
  Observation& observation = TheObservation();
  const std::lock_guard lock(observation.mutex);
  if (observation.observer) observation.observer(message);
}

void LogFailure(const std::string& reason) {
  COMMON_LOG_ERROR(log4cxx::Logger::getLogger("orv.report"), reason);
}

}  // namespace

EventDataReport& EventDataReport::Instance() {
  static auto& report = *new EventDataReport;
  return report;
}

tagLogInfo EventDataReport::GetMsg(const std::string& id, const std::string& payload) {
  return {id, payload};
}

bool EventDataReport::SendMsg(const tagLogInfo& message) {
  TellObserver(message);
  try {
    os::AppendLine(os::DataFolder() / "events.jsonl", EventLine(message));
    return true;
  } catch (const std::exception& error) {
    LogFailure("event " + message.id + " is lost: " + error.what());
  }
  return false;
}

void report::ObserveEvents(std::function<void(const tagLogInfo&)> observer) {
  Observation& observation = TheObservation();
  const std::lock_guard lock(observation.mutex);
  observation.observer = std::move(observer);
}
