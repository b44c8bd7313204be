#include "platform/util/shelf_file.h"

#include <rapidjson/error/en.h>
#include <rapidjson/memorystream.h>
#include <rapidjson/reader.h>

#include <stdexcept>
#include <utility>

#include "common/file.h"
#include "common/log.h"
#include "common/path_text.h"
#include "platform/os/paths.h"
#include "platform/util/text_helpers.h"

namespace util {
namespace {

constexpr std::size_t kMaxBytes = 1 << 20;

// Takes one flat array of texts and stops the parser at anything else.
class ShelfReader : public rapidjson::BaseReaderHandler<rapidjson::UTF8<>, ShelfReader> {
 public:
  bool Default() { return false; }
  bool StartArray() { return !std::exchange(inArray, true); }
  bool EndArray(rapidjson::SizeType) { return true; }
  bool String(const char* text, rapidjson::SizeType length, bool) {
    if (inArray) shelf.emplace(text, length);
    return inArray;
  }

  Shelf shelf;

 private:
  bool inArray = false;
};

std::string ReasonOf(const rapidjson::ParseResult& result) {
  const std::string place = "byte " + std::to_string(result.Offset()) + ": ";
  if (result.Code() == rapidjson::kParseErrorTermination)
    return place + "not an array of plugin keys";
  return place + rapidjson::GetParseError_En(result.Code());
}

}  // namespace

Shelf ParseShelf(std::string_view json, const std::string& name) {
  if (json.size() > kMaxBytes) throw std::runtime_error(name + ": larger than 1 MiB");
  constexpr unsigned kFlags =
      rapidjson::kParseIterativeFlag | rapidjson::kParseValidateEncodingFlag;
  rapidjson::MemoryStream stream(json.data(), json.size());
  ShelfReader handler;
  const rapidjson::ParseResult result = rapidjson::Reader().Parse<kFlags>(stream, handler);
  if (result.IsError()) throw std::runtime_error(name + ": " + ReasonOf(result));
  return std::move(handler.shelf);
}

Shelf ReadShelfFile(const std::filesystem::path& file) {
  return ParseShelf(common::ReadFile(file, kMaxBytes), common::PathText(file));
}

Shelf InstalledShelf() {
  try {
    return ReadShelfFile(ShelfFile());
  } catch (const std::exception& error) {
    COMMON_LOG_ERROR(log4cxx::Logger::getLogger("orv.util"),
                     "no plugin is offered: " + std::string(error.what()));
    return {};
  }
}

std::filesystem::path ShelfFile() {
  const std::filesystem::path name = std::filesystem::path("config") / "shelf.json";
  const std::filesystem::path root = os::ProgramConfigurationRoot();
  if (!root.empty() && DE::FileExists(root / name)) return root / name;
  return os::InstallationFolder() / name;
}

}  // namespace util
