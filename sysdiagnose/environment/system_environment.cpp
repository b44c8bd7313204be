#include "sysdiagnose/environment/system_environment.h"

#include <algorithm>
#include <array>
#include <filesystem>

#include "common/file.h"
#include "common/path_text.h"
#include "common/text.h"
#include "common/xml_document.h"
#include "platform/os/paths.h"
#include "platform/util/smbios_helper.h"
#include "platform/util/text_helpers.h"
#include "sysdiagnose/base/log.h"
#include "sysdiagnose/environment/product_version.h"

namespace orv::sysdiagnose {
namespace {

constexpr std::string_view kMachineListFile = "config\\MachineTypeList.xml";

// Searched in this order, anywhere in the upper-case version text.
struct VersionPrefix {
  std::string_view prefix;
  std::string_view type;
};
constexpr auto kVersionPrefixes = std::to_array<VersionPrefix>({
    {"QF-", "QF"},
    {"TK-", "Tusk"},
    {"LX-", "Lynx"},
    {"ORC-", "Orchid"},
    {"OD-", "Orchid"},
});

std::vector<MachineEntry>& ModelList() {
  static std::vector<MachineEntry> list;
  return list;
}

}  // namespace

std::string SystemEnvironment::GetMachineType() {
  std::string type;
  std::int32_t position = -1;
  GetDeviceTypeFromSMBIOS(type, position);
  if (!type.empty()) return type;

  const std::string version = DE::UpperCase(DE::TrimSP(GetProductVersion()));
  for (const auto& [prefix, model] : kVersionPrefixes)
    if (version.find(prefix) != std::string::npos) return std::string(model);
  return {};
}

void SystemEnvironment::GetDeviceTypeFromSMBIOS(std::string& type, std::int32_t& position) {
  type.clear();
  position = -1;
  const std::string name =
      DE::UpperCase(DE::WcharToChar(SMBIOSHelper::GetInstance()->GetSystemProductName()));
  if (name.empty()) return;

  std::vector<MachineEntry>& list = ModelList();
  if (list.empty()) {
    GetSupportMachineList(list);
    SYSDIAGNOSE_LOG_INFO("GetDeviceTypeFromSMBIOS strProduceName is :  " + name +
                         "(SystemEnvironment::GetDeviceTypeFromSMBIOS)");
  }
  const auto found = std::find_if(list.begin(), list.end(), [&name](const MachineEntry& entry) {
    return std::count(entry.signList.begin(), entry.signList.end(), name) > 0;
  });
  if (found == list.end()) return;
  type = found->type;
  position = static_cast<std::int32_t>(found - list.begin());
}

void SystemEnvironment::GetSupportMachineList(std::vector<MachineEntry>& list) {
  const std::filesystem::path folder = os::LibraryConfigurationRoot();
  if (folder.empty()) {
    SYSDIAGNOSE_LOG_ERROR(
        "GetSupportMachineList parse config file path failed!"
        "(SystemEnvironment::GetSupportMachineList)");
    return;
  }
  const std::filesystem::path file = folder / common::BackslashPath(kMachineListFile);
  if (!DE::FileExists(file)) {
    SYSDIAGNOSE_LOG_ERROR(
        "GetSupportMachineList config file doesn't exist"
        "(SystemEnvironment::GetSupportMachineList)");
    return;
  }
  list.clear();
  try {
    const std::string xml = common::ReadFile(file, common::kMaxXmlSize);
    if (!ParseMachineList(xml, common::PathText(file), list)) {
      SYSDIAGNOSE_LOG_ERROR(
          "GetSupportMachineList parse xml failed!(SystemEnvironment::GetSupportMachineList)");
    }
  } catch (...) {
    SYSDIAGNOSE_LOG_ERROR(common::DescribeCurrentException() +
                          "(SystemEnvironment::GetSupportMachineList)");
    SYSDIAGNOSE_LOG_ERROR(
        "GetSupportMachineList get exception!!(SystemEnvironment::GetSupportMachineList)");
  }
}

std::string SystemEnvironment::GetProductVersion() {
  if (const std::wstring text = ReadOemVersion(); !text.empty()) KeepProductVersion(text);
  return CleanProductVersion(DE::WcharToChar(KeptProductVersion()));
}

}  // namespace orv::sysdiagnose
