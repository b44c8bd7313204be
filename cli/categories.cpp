#include "cli/commands.h"
#include "cli/texts.h"
#include "common/path_text.h"
#include "common/text.h"
#include "sysdiagnose/catalogue/detect_catalogue.h"
#include "sysdiagnose/catalogue/xml_helper.h"

namespace cli {

using namespace orv::sysdiagnose;

std::vector<enmHardwareID> SelectedCategories(const Arguments& arguments) {
  if (!arguments.categories.empty()) return arguments.categories;
  std::vector<enmHardwareID> offered;
  for (const tagDetectItem& item : DetectCatalogue::Instance().items) offered.push_back(item.id);
  return offered;
}

std::string NothingOffered() {
  return Line(L"NOTHING_OFFERED", {common::Utf8ToWide(common::PathText(XmlHelper::ListPath()))});
}

std::wstring CaptionOf(enmHardwareID category) {
  const DetectCategory* shown = DetectCatalogue::Instance().Find(category);
  return shown == nullptr ? std::to_wstring(static_cast<int>(category)) : shown->caption;
}

}  // namespace cli
