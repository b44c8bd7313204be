#include <cstdint>
#include <memory>
#include <string_view>

#include "common/xml_document.h"
#include "platform/machine/current.h"
#include "platform/machine/machine_files/machine_file.h"
#include "sysdiagnose/catalogue/xml_helper.h"
#include "sysdiagnose/environment/machine_list.h"

using namespace orv::sysdiagnose;

// Both lists are read from the same text: each reader passes over what is not its own.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  [[maybe_unused]] static const bool once =
      (machine::SetCurrent(machine::ParseMachine("{}", "m")), true);
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  try {
    std::vector<MachineEntry> models;
    ParseMachineList(text, "fuzz", models);
    std::vector<tagDetectItem> items;
    XmlHelper::ParseDetectItems(text, "fuzz", items);
  } catch (const common::XmlError&) {
  }
  return 0;
}
