#pragma once

#include <functional>
#include <string>
#include <vector>

#include "sysdiagnose/base/hardware_id.h"
#include "sysdiagnose/engine/detect_item_detail.h"

namespace orv::sysdiagnose {

/// An item is about to be tested.
using ItemStartCallback = std::function<void(enmHardwareID, tagHardwareDetectInfo&)>;
/// An item has been tested.
using ItemResultCallback = std::function<void(enmHardwareID, tagDetectItemDetail&)>;
/// The first item failed and the rest of the category was left out.
using CategoryUnknownCallback = std::function<void(enmHardwareID, const std::wstring&)>;
/// A failed category can be repaired. Both arguments name the category.
using RepairOfferCallback = std::function<void(int, enmHardwareID, tagRepairItemInfo&)>;

/// A category has come out; in a detection run also one that told no item.
using CategoryVerdictCallback = std::function<void(enmHardwareID, bool normal)>;

/// How a category came out.
struct CategoryOutcome {
  bool normal = true;
  std::wstring text;                       // the first hint of an abnormal item
  std::vector<tagRepairItemInfo> repairs;  // what was offered: one entry per failed item it mends
};

/// What a category's run tells while it goes on, on the run's thread. All are set.
struct CategoryCallbacks {
  ItemStartCallback itemStart;
  ItemResultCallback itemResult;
  CategoryUnknownCallback categoryUnknown;
  RepairOfferCallback repairOffer;
};

}  // namespace orv::sysdiagnose
