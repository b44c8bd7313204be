#include "manager/window/settings.h"

#include <rapidjson/document.h>
#include <rapidjson/prettywriter.h>

#include <algorithm>
#include <iterator>
#include <optional>
#include <stdexcept>

#include "common/file.h"
#include "common/log.h"
#include "platform/os/paths.h"
#include "platform/os/replace_file.h"

namespace manager {
namespace {

using rapidjson::Value;

constexpr std::size_t kMostBytes = 64 * 1024;
constexpr int kFarthest = 100'000;  // points from the corner of the screen
constexpr DuiLib::Size kLeast{480, 360};
constexpr DuiLib::Size kMost{10'000, 10'000};

const Value* Member(const Value& object, const char* name) {
  if (!object.IsObject()) return nullptr;
  const auto found = object.FindMember(name);
  return found == object.MemberEnd() ? nullptr : &found->value;
}

std::optional<int> NumberIn(const Value& object, const char* name, int least, int most) {
  const Value* const value = Member(object, name);
  if (value == nullptr || !value->IsInt()) return {};
  const int number = value->GetInt();
  return number < least || number > most ? std::nullopt : std::optional(number);
}

std::string TextIn(const Value& object, const char* name) {
  const Value* const value = Member(object, name);
  return value != nullptr && value->IsString() ? value->GetString() : "";
}

void ReadPlacement(const Value& window, DuiLib::Placement& placement) {
  const auto width = NumberIn(window, "width", kLeast.width, kMost.width);
  const auto height = NumberIn(window, "height", kLeast.height, kMost.height);
  if (width && height) placement.size = {*width, *height};
  const auto x = NumberIn(window, "x", -kFarthest, kFarthest);
  const auto y = NumberIn(window, "y", -kFarthest, kFarthest);
  if (x && y) placement.place = DuiLib::Point{*x, *y};
  const Value* const maximized = Member(window, "maximized");
  placement.maximized = maximized != nullptr && maximized->IsTrue();
}

std::filesystem::path File() {
  return os::DataFolder() / "manager.json";
}

log4cxx::LoggerPtr Log() {
  return log4cxx::Logger::getLogger("orv.manager");
}

}  // namespace

Settings ParseSettings(std::string_view json) {
  rapidjson::Document document;
  document.Parse<rapidjson::kParseIterativeFlag>(json.data(), json.size());
  if (document.HasParseError() || !document.IsObject())
    throw std::runtime_error("the settings are no JSON object");
  Settings settings;
  if (const Value* const window = Member(document, "window"))
    ReadPlacement(*window, settings.placement);
  const auto theme =
      std::find(std::begin(kThemeNames), std::end(kThemeNames), TextIn(document, "theme"));
  if (theme != std::end(kThemeNames))
    settings.theme = static_cast<ThemeChoice>(theme - std::begin(kThemeNames));
  settings.language = TextIn(document, "language");
  return settings;
}

std::string SettingsText(const Settings& settings) {
  rapidjson::StringBuffer buffer;
  rapidjson::PrettyWriter json(buffer);
  const auto number = [&json](const char* name, int value) {
    json.Key(name);
    json.Int(value);
  };
  json.StartObject();
  json.Key("window");
  json.StartObject();
  if (settings.placement.place) {
    number("x", settings.placement.place->x);
    number("y", settings.placement.place->y);
  }
  number("width", settings.placement.size.width);
  number("height", settings.placement.size.height);
  json.Key("maximized");
  json.Bool(settings.placement.maximized);
  json.EndObject();
  json.Key("theme");
  json.String(kThemeNames[static_cast<std::size_t>(settings.theme)]);
  json.Key("language");
  json.String(settings.language.c_str());
  json.EndObject();
  return std::string(buffer.GetString(), buffer.GetSize()) + "\n";
}

Settings ReadSettings() {
  if (!std::filesystem::exists(File())) return {};
  try {
    return ParseSettings(common::ReadFile(File(), kMostBytes));
  } catch (const std::exception& error) {
    COMMON_LOG_WARN(Log(), std::string("manager.json is passed over: ") + error.what());
    return {};
  }
}

void WriteSettings(const Settings& settings) {
  try {
    os::ReplaceFile(File(), SettingsText(settings));
  } catch (const std::exception& error) {
    COMMON_LOG_WARN(Log(), std::string("The settings are not kept: ") + error.what());
  }
}

}  // namespace manager
