#include "sysdiagnose/environment/machine_list.h"

#include "common/xml_document.h"
#include "platform/util/text_helpers.h"

namespace orv::sysdiagnose {

bool ParseMachineList(std::string_view xml, std::string_view name,
                      std::vector<MachineEntry>& list) {
  const common::XmlDocument document(xml, name);
  const auto* root = document.Root("machineTypelist");
  if (root == nullptr) return false;

  std::string type;
  std::string signs;
  for (const auto* entry = root->first_node("machineType"); entry != nullptr;
       entry = common::NextElement(entry)) {
    if (const auto* child = entry->first_node("type")) type = common::ElementText(child);
    if (const auto* child = entry->first_node("signList")) signs = common::ElementText(child);
    if (!signs.empty()) list.push_back({type, DE::split(signs, ';')});
  }
  return true;
}

}  // namespace orv::sysdiagnose
