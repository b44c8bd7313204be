#pragma once

#include <string>
#include <vector>

#include "platform/duilib/tree/container.h"
#include "sysdiagnose/catalogue/detect_catalogue.h"

namespace orv::sysdiagnose {

/// A category that will be tested, as it is shown before the first run.
struct tagXmlUIInfo {
  std::wstring icon;
  std::wstring caption;
};

/// The offered categories in the order of the category list; without those that have no display
/// record. Any thread.
std::vector<tagXmlUIInfo> OfferedCategories(const DetectCatalogue& catalogue);

/// Puts one tile for each category into the area, in place of what was there. UI thread only.
void FillCategoryTiles(DuiLib::CContainerUI& area, const std::vector<tagXmlUIInfo>& categories,
                       DuiLib::CPaintManagerUI* manager);

}  // namespace orv::sysdiagnose
