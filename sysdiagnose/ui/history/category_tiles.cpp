#include "sysdiagnose/ui/history/category_tiles.h"

#include "sysdiagnose/ui/history/item_parts.h"

namespace orv::sysdiagnose {

std::vector<tagXmlUIInfo> OfferedCategories(const DetectCatalogue& catalogue) {
  std::vector<tagXmlUIInfo> offered;
  for (const tagDetectItem& item : catalogue.items) {
    if (const DetectCategory* category = catalogue.Find(item.id))
      offered.push_back({category->icon, category->caption});
  }
  return offered;
}

void FillCategoryTiles(DuiLib::CContainerUI& area, const std::vector<tagXmlUIInfo>& categories,
                       DuiLib::CPaintManagerUI* manager) {
  area.RemoveAll();
  for (const tagXmlUIInfo& category : categories) {
    const ItemParts tile(L"layout\\sysdiagnose_archievement_category.xml", area, manager);
    tile.SetImage(L"ctlIcon", category.icon);
    tile.SetText(L"txtName", category.caption);
  }
}

}  // namespace orv::sysdiagnose
