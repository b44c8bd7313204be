#pragma once

#include <cstdint>
#include <string>

namespace orv::sysdiagnose {

/// Announces a test item.
struct tagHardwareDetectInfo {
  std::wstring caption;
  std::wstring repairCommand;      // empty when no repair mends the item
  std::wstring repairFailureText;  // on the first item of some categories
};

/// The result of one test item.
struct tagDetectItemDetail {
  std::wstring caption;
  bool normal = true;
  std::wstring hint;      // for an abnormal item, what the owner can do
  std::int32_t code = 0;  // as the library returned it
  std::int32_t counter = 1;
};

/// A repair that a failed category offers, or one entry of a repair run.
struct tagRepairItemInfo {
  std::wstring text;
  bool offered = false;
  std::wstring command;
  std::wstring parameter;  // the failed item's code as a signed decimal
};

}  // namespace orv::sysdiagnose
