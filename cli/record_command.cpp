#include <cstdio>

#include "cli/commands.h"
#include "cli/json_line.h"
#include "cli/texts.h"
#include "common/path_text.h"
#include "common/text.h"
#include "platform/machine/current.h"
#include "platform/machine/machine_files/recorder.h"
#include "platform/os/replace_file.h"
#include "platform/util/shelf_file.h"
#include "sysdiagnose/environment/product_version.h"

namespace cli {

using namespace orv::sysdiagnose;

namespace {

// The version that a diagnosis of the machine would see. This one's registry stays as it is.
std::wstring ProductVersion() {
  const std::wstring version = ReadOemVersion();
  if (machine::IsLive()) return version.empty() ? KeptProductVersion() : version;
  if (!version.empty()) KeepProductVersion(version);
  return KeptProductVersion();
}

void RequireNew(const std::filesystem::path& file) {
  std::error_code error;
  if (std::filesystem::exists(std::filesystem::symlink_status(file, error)))
    throw UsageError(Message(L"FILE_EXISTS", {common::PathText(file)}));
}

}  // namespace

int RunRecording(const Arguments& arguments) {
  const std::filesystem::path& file = arguments.recordingFile;
  if (!arguments.replaceFile) RequireNew(file);

  machine::RecordRequest request;
  request.withTests = arguments.withTests;
  request.plain = arguments.plain;
  const util::Shelf shelf = util::InstalledShelf();
  request.installedShelf.assign(shelf.begin(), shelf.end());
  const std::wstring version = ProductVersion();
  if (!version.empty()) request.registry[ProductVersionPlace()] = version;
  os::ReplaceFile(file, machine::RecordMachine(machine::Current(), request));

  if (arguments.json)
    JsonLine("recorded").Add("file", common::PathText(file));
  else
    std::puts(Line(L"RECORDED", {common::Utf8ToWide(common::PathText(file))}).c_str());
  return kAllNormal;
}

}  // namespace cli
