#include "sysdiagnose/catalogue/xml_helper.h"

#include <algorithm>
#include <array>
#include <cstdlib>

#include "common/file.h"
#include "common/path_text.h"
#include "common/text.h"
#include "common/xml_document.h"
#include "platform/hardware_detect/hardware_detect.h"
#include "platform/os/paths.h"
#include "platform/util/soft_shelf.h"
#include "platform/util/text_helpers.h"
#include "sysdiagnose/base/log.h"
#include "sysdiagnose/environment/system_environment.h"

namespace orv::sysdiagnose {
namespace {

constexpr auto kFingerprintModels =
    std::to_array<std::string_view>({"Tusk", "Lynx", "Opal", "Ember"});

bool SupportsBluetooth() {
  if (HardwareDetect::CBluetoothDetect().IsSurportBt()) return true;
  SYSDIAGNOSE_LOG_WARN(
      "is not support BT, ignore bt item(orv::sysdiagnose::XmlHelper::GetDetectItems)");
  return false;
}

bool SupportsFingerprint() {
  if (!CQVXSoftShelf::GetInstance()->IsSupportPlugin("PowerManagerUIPlugin")) return false;
  const std::string model = SystemEnvironment::GetMachineType();
  return std::count(kFingerprintModels.begin(), kFingerprintModels.end(), model) > 0;
}

bool IsSupported(enmHardwareID id) {
  if (id == enmHardwareID::Bluetooth) return SupportsBluetooth();
  if (id == enmHardwareID::Fingerprint) return SupportsFingerprint();
  return true;
}

void AppendItem(const common::XmlElement* element, std::vector<tagDetectItem>& items) {
  const auto* id = element->first_attribute("id");
  const auto* name = element->first_attribute("name");
  const auto* description = element->first_attribute("description");
  if (id == nullptr || name == nullptr || description == nullptr) return;

  // Leading blanks and a sign are accepted; a text without digits is 0.
  const auto category = static_cast<enmHardwareID>(std::strtoll(id->value(), nullptr, 10));
  if (!IsSupported(category)) return;
  items.push_back({category, common::Utf8ToWide({name->value(), name->value_size()}),
                   common::Utf8ToWide({description->value(), description->value_size()})});
}

}  // namespace

std::filesystem::path XmlHelper::ListPath() {
  const std::filesystem::path folder = os::ProgramConfigurationRoot();
  return folder.empty() ? folder : folder / common::BackslashPath(kListFile);
}

void XmlHelper::GetDetectItems(std::vector<tagDetectItem>& items) {
  items.clear();
  const std::filesystem::path file = ListPath();
  if (file.empty()) return;
  if (!DE::FileExists(file)) return;

  ParseDetectItems(common::ReadFile(file, common::kMaxXmlSize), common::PathText(file), items);
}

void XmlHelper::ParseDetectItems(std::string_view xml, std::string_view name,
                                 std::vector<tagDetectItem>& items) {
  const common::XmlDocument document(xml, name);
  const auto* root = document.Root("sysdiagnose");
  if (root == nullptr) return;
  for (const auto* element = root->first_node("DetectItem"); element != nullptr;
       element = common::NextElement(element))
    AppendItem(element, items);
}

}  // namespace orv::sysdiagnose
