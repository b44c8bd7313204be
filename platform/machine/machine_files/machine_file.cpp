#include "platform/machine/machine_files/machine_file.h"

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <system_error>

#include "platform/machine/machine_files/sections.h"

namespace machine {
namespace {

constexpr std::size_t kMaxBytes = std::size_t{4} << 20;

void ReadShelf(const JsonNode& section, Recording& recording) {
  std::vector<std::string>& keys = recording.shelf.emplace();
  for (const JsonNode& key : section.Elements()) keys.push_back(key.Utf8());
}

void ReadNotFitted(const JsonNode& section, Recording& recording) {
  for (const JsonNode& name : section.Elements()) {
    const std::optional<Part> part = PartOfName(name.Utf8());
    if (!part) name.Fail("unknown category");
    if (std::ranges::count(recording.notFitted, *part) > 0) name.Fail("given twice");
    recording.notFitted.push_back(*part);
  }
}

void ReadRegistry(const JsonNode& section, Recording& recording) {
  for (const JsonNode& root : section.Members()) {
    for (const JsonNode& key : root.Members()) {
      for (const JsonNode& value : key.Members()) {
        recording
            .registry[{std::string(root.Key()), std::string(key.Key()), std::string(value.Key())}] =
            value.Text();
      }
    }
  }
}

struct SectionRow {
  std::string_view name;
  void (*read)(const JsonNode& section, Recording& recording);
};

constexpr auto kSections = std::to_array<SectionRow>({
    {"product",
     [](const JsonNode& section, Recording& recording) { recording.product = section.Text(); }},
    {"shelf", ReadShelf},
    {"notFitted", ReadNotFitted},
    {"registry", ReadRegistry},
    {"info",
     [](const JsonNode& section, Recording& recording) { ReadInfo(section, recording.info); }},
    {"tests", ReadTests},
    {"repairs", ReadRepairs},
});

[[noreturn]] void Fail(const std::string& file, const std::string& reason) {
  throw MachineFileError(file + ": " + reason);
}

// Of the text as it stands: a file that was changed describes another machine.
std::string IdentityOf(std::string_view json) {
  std::uint64_t hash = 0xCBF29CE484222325;  // FNV-1a
  for (const char byte : json) hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001B3;
  return std::to_string(hash);
}

std::string ReadBytes(const std::filesystem::path& file, const std::string& name) {
  std::error_code error;
  const std::filesystem::file_status status = std::filesystem::status(file, error);
  if (status.type() == std::filesystem::file_type::not_found) Fail(name, "does not exist");
  if (std::filesystem::is_directory(status)) Fail(name, "is a folder, not a file");
  std::ifstream stream(file, std::ios::binary);
  std::string bytes(kMaxBytes + 1, '\0');
  if (stream) stream.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  if (!stream.is_open() || stream.bad())
    Fail(name, "cannot be read: " + std::generic_category().message(errno));
  bytes.resize(static_cast<std::size_t>(stream.gcount()));
  return bytes;
}

}  // namespace

std::unique_ptr<Machine> ParseMachine(std::string_view json, const std::string& name) {
  if (json.size() > kMaxBytes) Fail(name, "larger than 4 MiB");
  const rapidjson::Document document = ParseJson(json, name);
  const JsonNode file(document, name);
  Recording recording;
  for (const JsonNode& section : file.Members()) {
    const auto row = std::ranges::find(kSections, section.Key(), &SectionRow::name);
    if (row == kSections.end()) section.Fail("unknown key");
    row->read(section, recording);
  }
  return std::make_unique<RecordedMachine>(std::move(recording), IdentityOf(json));
}

std::unique_ptr<Machine> ReadMachineFile(const std::filesystem::path& file) {
  const std::u8string utf8 = file.u8string();
  const std::string name(utf8.begin(), utf8.end());
  return ParseMachine(ReadBytes(file, name), name);
}

}  // namespace machine
