#include "cli/run_log.h"

#include <rapidjson/document.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <algorithm>
#include <exception>
#include <string_view>

#include "common/file.h"
#include "platform/os/append_file.h"
#include "platform/os/paths.h"

namespace cli {

using namespace orv::sysdiagnose;

namespace {

constexpr std::size_t kMostBytes = os::kFullFile;

std::filesystem::path LogFile() {
  return os::DataFolder() / "runs.jsonl";
}

std::optional<Verdict> VerdictNamed(std::string_view name) {
  for (int i = 0; i < static_cast<int>(Verdict::Count); ++i)
    if (name == NameOf(static_cast<Verdict>(i))) return static_cast<Verdict>(i);
  return std::nullopt;
}

std::string TextOf(const LoggedRun& run) {
  rapidjson::StringBuffer buffer;
  rapidjson::Writer<rapidjson::StringBuffer> writer(buffer);
  writer.StartObject();
  writer.Key("secondTime");
  writer.Int64(run.secondTime);
  writer.Key("results");
  writer.StartArray();
  for (const int result : run.results) writer.Int(result);
  writer.EndArray();
  writer.Key("end");
  writer.String(run.end.c_str());
  writer.Key("categories");
  writer.StartArray();
  for (const LoggedCategory& each : run.categories) {
    writer.StartObject();
    writer.Key("category");
    writer.Int(static_cast<int>(each.category));
    writer.Key("verdict");
    writer.String(NameOf(each.verdict));
    writer.Key("reached");
    writer.Bool(each.isReached);
    writer.Key("tookMs");
    writer.Int64(each.took.count());
    writer.EndObject();
  }
  writer.EndArray();
  writer.EndObject();
  return buffer.GetString();
}

std::optional<LoggedCategory> CategoryOf(const rapidjson::Value& value) {
  if (!value.IsObject()) return std::nullopt;
  const auto category = value.FindMember("category");
  const auto verdict = value.FindMember("verdict");
  const auto reached = value.FindMember("reached");
  const auto took = value.FindMember("tookMs");
  const auto end = value.MemberEnd();
  if (category == end || verdict == end || reached == end || took == end ||
      !category->value.IsInt() || !verdict->value.IsString() || !reached->value.IsBool() ||
      !took->value.IsInt64())
    return std::nullopt;
  const auto named = VerdictNamed(verdict->value.GetString());
  if (!named) return std::nullopt;
  return LoggedCategory{static_cast<enmHardwareID>(category->value.GetInt()), *named,
                        reached->value.GetBool(),
                        std::chrono::milliseconds(took->value.GetInt64())};
}

std::optional<LoggedRun> RunOf(std::string_view line) {
  rapidjson::Document run;
  run.Parse<rapidjson::kParseIterativeFlag>(line.data(), line.size());
  if (run.HasParseError() || !run.IsObject()) return std::nullopt;
  const rapidjson::Value& members = run;
  const auto time = members.FindMember("secondTime");
  const auto results = members.FindMember("results");
  const auto end = members.FindMember("end");
  const auto categories = members.FindMember("categories");
  const auto none = members.MemberEnd();
  if (time == none || results == none || !results->value.IsArray() || end == none ||
      categories == none || !time->value.IsInt64() || !end->value.IsString() ||
      !categories->value.IsArray())
    return std::nullopt;
  LoggedRun read{time->value.GetInt64(), {}, end->value.GetString(), {}};
  for (const rapidjson::Value& each : results->value.GetArray()) {
    if (!each.IsInt()) return std::nullopt;
    read.results.push_back(each.GetInt());
  }
  for (const rapidjson::Value& each : categories->value.GetArray()) {
    const auto category = CategoryOf(each);
    if (!category) return std::nullopt;
    read.categories.push_back(*category);
  }
  return read;
}

}  // namespace

void LogRun(const LoggedRun& run) {
  os::AppendLine(LogFile(), TextOf(run));
}

std::vector<LoggedRun> ReadRunLog() {
  std::vector<LoggedRun> runs;
  std::error_code error;
  if (!std::filesystem::is_regular_file(LogFile(), error)) return runs;
  const std::string text = common::ReadFile(LogFile(), kMostBytes);
  for (std::size_t at = 0, end = 0; (end = text.find('\n', at)) != std::string::npos; at = end + 1)
    if (auto run = RunOf(std::string_view(text).substr(at, end - at)))
      runs.push_back(*std::move(run));
  return runs;
}

std::map<enmHardwareID, std::chrono::milliseconds> LastDurations(
    const std::vector<LoggedRun>& runs) {
  std::map<enmHardwareID, std::chrono::milliseconds> durations;
  for (const LoggedRun& run : runs)
    for (const LoggedCategory& each : run.categories)
      if (each.isReached) durations[each.category] = each.took;
  return durations;
}

}  // namespace cli
